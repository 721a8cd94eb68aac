class Distance:
    @staticmethod

    def after_blank_line():
        pass

    @staticmethod
    # a comment between
    def after_comment():
        pass

    @classmethod
    x = 1
    def after_statement(cls):
        pass

    @staticmethod
    class Inner:
        def method(self):
            pass
