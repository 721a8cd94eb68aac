// SPDX-License-Identifier: MIT
#include "bridge/meltext.h"
#include "standin/mel/interpreter.h"
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
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("literal");

    QTest::newRow("empty") << ""
                           << "\"\"";
    QTest::newRow("quotes") << "say \"x\""
                            << "\"say \\\"x\\\"\"";
    QTest::newRow("backslash-before-n") << "C:\\new"
                                        << "\"C:\\\\new\"";
    QTest::newRow("line-break") << "a\nb"
                                << "\"a\\nb\"";
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
