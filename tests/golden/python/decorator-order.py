class Order:
    @classmethod
    @staticmethod
    def nearer_is_static():
        pass

    @staticmethod
    @classmethod
    def nearer_is_class(cls):
        pass

    @staticmethod
    @undoable
    def between(name):
        pass

    @staticmethod 
    def trailing_space():
        pass

    @ staticmethod
    def leading_space():
        pass

    @classmethod
    @staticmethod
    @classmethod
    def last_counts(cls):
        pass
