@staticmethod
@last
