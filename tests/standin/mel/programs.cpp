// SPDX-License-Identifier: MIT
#include "tests/standin/mel/programs.h"

#include <QDir>
#include <QFile>

namespace {

const char sectionMark[] = "//-- ";

bool isExpectation(const QByteArray &line)
{
    return line.size() >= 4 && line.startsWith("//") && line[3] == ' ' &&
           QByteArray(">REWHS").contains(line[2]);
}

// The interpreter's texts have no line break after their last line.
void addLine(std::string &text, const QByteArray &line)
{
    text += (text.empty() ? "" : "\n") + std::string(line.constData(), size_t(line.size()));
}

void readLine(std::vector<MelProgram> &programs, const QString &file, const QByteArray &line)
{
    if (line.startsWith(sectionMark)) {
        const QByteArray title = line.mid(int(sizeof sectionMark) - 1);
        programs.push_back({file + ": " + QString::fromUtf8(title), {}});
        return;
    }
    std::vector<MelStep> &steps = programs.back().steps;
    if (isExpectation(line)) {
        steps.back().messages.push_back(std::string(line.constData() + 2, size_t(line.size()) - 2));
        return;
    }
    if (steps.empty() || !steps.back().messages.empty())
        steps.push_back({});
    addLine(steps.back().text, line);
}

} // namespace

std::vector<MelProgram> melPrograms()
{
    std::vector<MelProgram> programs;
    const QDir folder(MEL_PROGRAMS);
    for (const QString &name :
         folder.entryList(QStringList() << "*.mel", QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QList<QByteArray> lines = file.readAll().split('\n');
        if (lines.last().isEmpty())
            lines.removeLast();
        for (const QByteArray &line : lines)
            readLine(programs, name.section('.', 0, 0), line);
    }
    return programs;
}
