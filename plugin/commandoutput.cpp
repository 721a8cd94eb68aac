// SPDX-License-Identifier: MIT
#include "plugin/commandoutput.h"

#include "bridge/outputsuppression.h"
#include "plugin/editorinstance.h"

#include <maya/MQtUtil.h>

namespace {

// Deliberate: a comment of MEL, whichever language the message comes from.
QString enclosed(const char *prefix, const QString &message)
{
    return QLatin1String(prefix) + message + QLatin1String(" //\n");
}

} // namespace

QString formatCommandOutput(const QString &message, MCommandMessage::MessageType type)
{
    switch (type) {
    case MCommandMessage::kInfo:
        return enclosed("// ", message);
    case MCommandMessage::kWarning:
        return enclosed("// Warning: ", message);
    case MCommandMessage::kError:
        return enclosed("// Error: ", message);
    case MCommandMessage::kResult:
        return enclosed("// Result: ", message);
    case MCommandMessage::kStackTrace:
        return QString();
    default:
        return message; // echoed commands and printed text, which bring their own line breaks
    }
}

void commandOutputCallback(const MString &message, MCommandMessage::MessageType type, void *)
{
    if (isOutputSuppressed())
        return;
    // No error is shown for a failure in here: showing one would call this function again.
    try {
        const QString text = formatCommandOutput(MQtUtil::toQString(message), type);
        if (!text.isEmpty() && editorInstance().window)
            editorInstance().window->appendOutputText(text);
    } catch (...) {
    }
}
