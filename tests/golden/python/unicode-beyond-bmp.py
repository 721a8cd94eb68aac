icon = "😀🎬" # 🎥 TODO units of UTF-16
def after(): return '𝒳('
𝒳 = 1
