# Größe — TODO später
größe = "日本語 (ß)"
def naïve(): pass
class Ärger: pass
def plain(): return u'é'
import ünter
from modul import größe
iñ in é.if
