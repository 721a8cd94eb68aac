// SPDX-License-Identifier: MIT
// corvane-dump mel|python [--names FILE] [--lines] FILE...: what the editor knows of each script,
// one line of JSON for each; --lines gives each outline item, diagnostic and block a line of its
// own.
#include "tests/support/scriptdump.h"

#include <QFile>
#include <QStringList>

#include <cstdio>

namespace {

const char usage[] = "usage: corvane-dump mel|python [--names FILE] [--lines] FILE...\n";

bool readFile(const QString &path, QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
        return false;
    }
    bytes = file.readAll();
    return true;
}

bool dump(ScriptLanguage language, const QString &path, const QHash<QString, QString> &names,
          DumpLayout layout)
{
    QByteArray bytes;
    if (!readFile(path, bytes))
        return false;
    const QByteArray json = scriptDump(language, path, scriptText(bytes), names, layout) + '\n';
    return std::fwrite(json.constData(), size_t(json.size()), 1, stdout) == 1;
}

} // namespace

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    const QString language = arguments.isEmpty() ? QString() : arguments.takeFirst();
    const bool isMel = language == QLatin1String("mel");
    QHash<QString, QString> names;
    if (arguments.size() >= 2 && arguments.first() == QLatin1String("--names")) {
        QByteArray bytes;
        if (!readFile(arguments.at(1), bytes))
            return 1;
        names = namesFrom(bytes);
        arguments = arguments.mid(2);
    }
    DumpLayout layout = DumpLayout::OneLine;
    if (!arguments.isEmpty() && arguments.first() == QLatin1String("--lines")) {
        layout = DumpLayout::Lines;
        arguments.removeFirst();
    }
    if ((!isMel && language != QLatin1String("python")) || arguments.isEmpty()) {
        std::fputs(usage, stderr);
        return 2;
    }
    bool ok = true;
    for (const QString &path : arguments)
        ok = dump(isMel ? ScriptLanguage::Mel : ScriptLanguage::Python, path, names, layout) && ok;
    return ok ? 0 : 1;
}
