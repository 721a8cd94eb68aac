// SPDX-License-Identifier: MIT
#include "standin/mel/builtins.h"

#include "standin/mel/runtime.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace mel {

namespace {

using Clock = std::chrono::steady_clock;

// Since its first call; a clock that setting the time does not move.
double seconds()
{
    static const Clock::time_point start = Clock::now();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// With the answer of an earlier call as start time, the seconds since then.
Value timerX(Runtime &, Call &call)
{
    return seconds() - call.number("startTime", 0);
}

// In short naps, so that a waiting script can be stopped.
Value pause(Runtime &runtime, Call &call)
{
    const double end = seconds() + call.number("seconds", 0);
    while (seconds() < end) {
        runtime.checkInterrupt();
        // 20 ms are short enough for a stop to feel immediate and long enough to cost nothing.
        const std::chrono::duration<double> rest(std::min(end - seconds(), 0.02));
        std::this_thread::sleep_for(rest);
    }
    return {};
}

std::string padded(int number, size_t width)
{
    const std::string digits = std::to_string(number);
    return std::string(digits.size() < width ? width - digits.size() : 0, '0') + digits;
}

// Replaces the fields of a date: YYYY or YY, MM, DD, hh, mm, ss.
// Everything else is copied. YYYY stands before YY, of which it is made.
std::string formattedDate(const std::string &format, const std::tm &now)
{
    const std::pair<const char *, std::string> fields[] = {
        {"YYYY", padded(now.tm_year + 1900, 4)}, {"YY", padded(now.tm_year % 100, 2)},
        {"MM", padded(now.tm_mon + 1, 2)},       {"DD", padded(now.tm_mday, 2)},
        {"hh", padded(now.tm_hour, 2)},          {"mm", padded(now.tm_min, 2)},
        {"ss", padded(now.tm_sec, 2)},
    };
    std::string text;
    for (size_t at = 0; at < format.size();) {
        size_t length = 1;
        std::string piece = format.substr(at, 1);
        for (const auto &field : fields) {
            const std::string name = field.first;
            if (length == 1 && format.compare(at, name.size(), name) == 0) {
                length = name.size();
                piece = field.second;
            }
        }
        text += piece;
        at += length;
    }
    return text;
}

Value date(Runtime &, Call &call)
{
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    std::string format = "YYYY/MM/DD hh:mm:ss";
    for (const auto &form :
         {std::make_pair("date", "YYYY/MM/DD"), std::make_pair("time", "hh:mm:ss"),
          std::make_pair("shortDate", "MM/DD"), std::make_pair("shortTime", "hh:mm")}) {
        if (call.isSet(form.first))
            format = form.second;
    }
    return formattedDate(call.text("format", format), local);
}

const CommandRow rows[] = {
    {"date",
     date,
     {{"d", "date"},
      {"t", "time"},
      {"sd", "shortDate"},
      {"st", "shortTime"},
      {"f", "format", {ArgumentKind::String}}}},
    {"timerX", timerX, {{"st", "startTime", {ArgumentKind::Float}}}},
    {"pause", pause, {{"sec", "seconds", {ArgumentKind::Float}}}},
};

} // namespace

CommandRows systemCommands()
{
    return {rows, std::size(rows)};
}

} // namespace mel
