// SPDX-License-Identifier: MIT
#include "bridge/meltext.h"
#include "standin/mel/interpreter.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

namespace {

class SilentHost : public mel::Host
{
public:
    void message(mel::MessageKind, const std::string &) override {}
    void deferMel(const std::string &, mel::IdlePriority) override {}
    std::vector<std::string> deferredMel() const override { return {}; }
    std::vector<std::string> scriptPath() const override { return {}; }
};

// What MEL makes of the literal.
QString throughMel(const QString &text)
{
    SilentHost host;
    mel::Interpreter interpreter(host);
    const QByteArray code = (QLatin1String("string $s = ") + quotedForMel(text)).toUtf8();
    const mel::Outcome outcome =
        interpreter.execute(std::string(code.constData(), size_t(code.size())));
    const std::string *value = std::get_if<std::string>(&outcome.value);
    return value ? QString::fromUtf8(value->data(), int(value->size()))
                 : QLatin1String("no string");
}

} // namespace

class MelTextTest : public QObject
{
    Q_OBJECT

private slots:
    void literalsAreWrittenAsMelReadsThem_data();
    void literalsAreWrittenAsMelReadsThem();
    void paragraphSeparatorsBecomeLineBreaks();
};

void MelTextTest::literalsAreWrittenAsMelReadsThem_data()
{
    columns<QString, QString>("text", "literal");

    row("empty", "", "\"\"");
    row("quotes", "say \"x\"", "\"say \\\"x\\\"\"");
    row("backslash-before-n", "C:\\new", "\"C:\\\\new\"");
    row("line-break", "a\nb", "\"a\\nb\"");
}

void MelTextTest::literalsAreWrittenAsMelReadsThem()
{
    QFETCH(QString, text);
    QTEST(quotedForMel(text), "literal");
}

void MelTextTest::paragraphSeparatorsBecomeLineBreaks()
{
    QCOMPARE(throughMel(QString::fromUtf8("a\xe2\x80\xa9"
                                          "b")),
             QString::fromLatin1("a\nb"));
}

CORVANE_TEST_MAIN(MelTextTest)
#include "tst_meltext.moc"
