// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/baseparser.h"

#include <QString>

// The parser that records what it would keep to itself.
template <typename Parser>
class Recording : public Parser
{
public:
    void addError(const QString &message, int start, int end) override
    {
        BaseParser::addError(message, start, end);
    }
};

// Results as one line each: "kind name position depth" and "message start end".
QString outlineListing(const BaseParser &parser);
QString listing(const DiagnosticList &diagnostics);
