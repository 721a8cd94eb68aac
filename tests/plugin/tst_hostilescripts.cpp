// SPDX-License-Identifier: MIT
// Scripts whose every statement would leave a mark if it were run: opened, restored, parsed,
// checked and completed, beside packages and live objects of the same kind.
#include "bridge/pythonanalysis.h"
#include "bridge/pythonsyntaxcheck.h"
#include "editor/edcodeedit.h"
#include "editor/pythoncompletion.h"
#include "mainwindow/kestrowl.h"
#include "preferences/preferences.h"
#include "standin/python/python.h"
#include "standin/ui/userinterface.h"
#include "tests/support/scratchdir.h"
#include "tests/support/sessionlog.h"
#include "tests/support/testmain.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/scriptdetails.h"

#include <QApplication>
#include <QDir>
#include <QTextBlock>

#include <memory>

namespace {

// In each one MARK stands for an expression that would leave the mark.
const char *const scripts[] = {
    "MARK\nx = 1\n",
    "def f(a=MARK, *b): return MARK\nf(MARK)\n",
    "@(lambda f: MARK)\ndef f(): pass\n@MARK\nclass x: pass\n",
    "class A(MARK or object):\n    MARK\n    x = MARK\n    def f(self): MARK\nx = A()\n",
    "class M(type):\n    def __dir__(cls): MARK\n    def __getattr__(cls, n): MARK\n"
    "class x(metaclass=M): pass\n",
    "class P(object):\n    @property\n    def thing(self): MARK\n    __class__ = __dict__ = thing\n"
    "x = P()\n",
    "def __getattr__(name): MARK\ndef __dir__(): MARK\n",
    "import hostilemodule\nimport hostilemodule as x\n",
    "from hostilepack import part as x\nfrom hostilepack.part import *\nimport hostilepack.part\n",
    "import hostilelive, hostilelive as x\ny = hostilelive.thing\nz = y.value\n",
    "import sys\nclass H:\n    def find_spec(self, *a): MARK\n    find_module = find_spec\n"
    "sys.meta_path.insert(0, H())\nimport json.tool as x\n",
    "x = \"\\\"; MARK; \\\"\"\n'''\\'''; MARK; '''\n\"\"\"\\\\\"\"\"; MARK\n",
    "\"); MARK; (\"\n'); MARK; ('\n\\\"\\\\\"); MARK #\nx\n",
    "x = f'{MARK}' + f\"{x!r:{MARK}}\"\n",
    "x = [MARK for y in (z := MARK)]\nlambda a=MARK: MARK\n",
    "# coding: hostilecodec\nx = MARK\n",
    "exec('MARK')\neval('MARK')\n__import__('hostilemodule')\nx = compile('MARK', '', 'exec')\n",
    "def f(:\n  MARK\n  )\nMARK)\nx = (MARK,\n",
    "class cmds:\n    def __getattr__(self, n): MARK\n    polySphere = property(lambda s: MARK)\n",
    "if MARK: x = 1\nwhile MARK: pass\nwith MARK as x: pass\nassert MARK\ndel x\n",
    "try: MARK\nexcept MARK as x: MARK\nfinally: MARK\nasync def f(): await MARK\n",
};

// What is typed at the ends.
const char *const endings[] = {
    "x.",
    "import ",
    "from hostilepack import ",
    "import hostilepack.",
    "hostilelive.thing.",
    "hostilelive.thing.value.",
    "hostilelive.missing.",
    "cmds.polySphere(",
    "__import__('x').",
    "hostilelazy.thing.",
};

const char liveObjects[] =
    "import sys, types\n"
    "class Lazy(types.ModuleType):\n"
    "    def __getattribute__(self, name): MARK\n"
    "    __getattr__ = __dir__ = __iter__ = __getattribute__\n"
    "class Thing(object):\n"
    "    def __getattribute__(self, *name): MARK\n"
    "    __getattr__ = __dir__ = __bool__ = __iter__ = __str__ = __repr__ = __eq__ = "
    "__getattribute__\n"
    "    __hash__ = __len__ = fspath = __fspath__ = __getattribute__\n"
    "    value = property(__getattribute__)\n"
    "class Hook(object):\n"
    "    def find_spec(self, name, *more):\n"
    "        if name.startswith('hostile'): MARK\n"
    "for module in (types.ModuleType('hostilelive'), Lazy('hostilelazy')):\n"
    "    names = types.ModuleType.__dict__['__dict__'].__get__(module)\n"
    "    names.update(thing=Thing(), Kind=Thing, __path__=Thing())\n"
    "    names.update((name, lambda *a: MARK) for name in ('__getattr__', '__dir__'))\n"
    "    sys.modules[names['__name__']] = module\n"
    "sys.modules['hostilelive.below'] = sys.modules['maya'].hostile = Thing()\n"
    "sys.path += [Thing(), FOLDER]\n"
    "sys.meta_path.insert(0, Hook())\n"
    "sys.path_hooks.insert(0, lambda path: MARK if 'pack' in path else [][0])\n"
    "del Lazy, Hook, module, names\n";

} // namespace

class HostileScriptsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void filesRunNothing();

private:
    QByteArray marking(const char *text) const;
    void writePackages() const;
    void openAndRead(Kestrowl &window, const QString &path);
    void completeEverywhere(EdCodeEdit &edit);

    ScratchDir m_folder;
    QString m_mark;
    int m_offered = 0; // names
    PythonCompletion m_source;
    std::unique_ptr<standin::Session> m_session;
    std::unique_ptr<standin::UserInterface> m_ui;
};

void HostileScriptsTest::initTestCase()
{
    m_mark = m_folder.file("was_run");
    QDir().mkpath(m_folder.file("user"));
    QDir().mkpath(m_folder.file("hostilepack"));
    QDir::setCurrent(m_folder.path());
    standin::SessionOptions options;
    options.userDirectory = m_folder.file("user");
    m_session = std::make_unique<standin::Session>(options);
    m_session->setPython(standin::createPythonEngine(*m_session, m_session->mel()));
    m_ui = std::make_unique<standin::UserInterface>(*m_session);
    writePackages();
    QVERIFY(loadPythonAnalysis());
    setPythonSyntaxCheck(PythonSyntaxCheck::start);
    setPythonNameSource(pythonAnswer);
    const QString objects = QString::fromUtf8(marking(liveObjects));
    QVERIFY(executePythonStatement(objects));
    QVERIFY(!QFile::exists(m_mark));
}

void HostileScriptsTest::cleanupTestCase()
{
    setPythonSyntaxCheck(nullptr);
    setPythonNameSource(nullptr);
    m_ui.reset();
    m_session.reset();
    QDir::setCurrent(QDir::tempPath());
}

QByteArray HostileScriptsTest::marking(const char *text) const
{
    const QByteArray path = '\'' + m_mark.toUtf8() + '\'';
    QByteArray result(text);
    return result.replace("MARK", "open(" + path + ", 'w')")
        .replace("FOLDER", '\'' + m_folder.path().toUtf8() + '\'');
}

void HostileScriptsTest::writePackages() const
{
    for (const char *name : {"hostilemodule.py", "hostilepack/__init__.py", "hostilepack/part.py",
                             "hostilecodec.py", "sitecustomize.py"})
        m_folder.write(name, marking("class Kind(object): made = MARK\nMARK\nx = 1\n"));
    for (const char *name : {"hostilepack/compiled.so", "hostilepack/old.pyc"})
        m_folder.write(name, marking("MARK"));
}

void HostileScriptsTest::openAndRead(Kestrowl &window, const QString &path)
{
    window.open(path);
    EdCodeView *view = window.central()->currentCodeView();
    QVERIFY(view && view->fileInfo().filePath() == path);
    QVERIFY(ScriptDetails::of(view).python());
    while (view->findChild<SyntaxCheck *>())
        QTest::qWait(1);
    completeEverywhere(*view->codeEdit());
}

// At the end of each line, and with each ending below the last one.
void HostileScriptsTest::completeEverywhere(EdCodeEdit &edit)
{
    QTextCursor caret = edit.textCursor();
    const int endingsLine = edit.document()->blockCount() - 1;
    caret.movePosition(QTextCursor::End);
    for (const char *ending : endings)
        caret.insertText(QString::fromLatin1(ending) + QLatin1Char('\n'));
    caret.insertText(QString(QChar(0)) + QChar(0xd800) + QChar(0x2028) + QLatin1String("x.\n"));
    for (QTextBlock block = edit.document()->begin(); block.isValid(); block = block.next()) {
        caret.setPosition(block.position() + block.length() - 1);
        const std::size_t count = m_source.completionsAt(caret).items.size();
        m_offered += block.blockNumber() >= endingsLine ? int(count) : 0;
    }
    edit.document()->setModified(false);
}

void HostileScriptsTest::filesRunNothing()
{
    preferences().pythonForcedImports = "hostile;x\\\"); open('a', 'w'"; // not applied
    const int count = int(sizeof scripts / sizeof *scripts);
    const QString settings = m_folder.file("user");
    {
        Kestrowl window(settings, settings);
        for (int i = 0; i < 200; ++i) {
            // Two of them after the other, so that the second one meets the first one's names.
            const QByteArray text = marking(scripts[i % count]) + marking(scripts[i / count]);
            const QByteArray name = "hostile" + QByteArray::number(i) + ".py";
            openAndRead(window, m_folder.write(name.constData(), text));
            if (QTest::currentTestFailed())
                return;
            QVERIFY2(!QFile::exists(m_mark), text.constData());
        }
        window.writeSettings();
    }
    QVERIFY(m_offered > 20000);
    Kestrowl restored(settings, settings);
    QApplication::processEvents();
    QVERIFY(restored.central()->codeViews().size() >= 200);
    QVERIFY(!QFile::exists(m_mark));
    QVERIFY(executePythonStatement(
        "import sys\n"
        "assert [n for n in sys.modules if n.startswith('hostile') and '.' not in n] == "
        "['hostilelive', 'hostilelazy']\n"));
}

CORVANE_TEST_MAIN(HostileScriptsTest)
#include "tst_hostilescripts.moc"
