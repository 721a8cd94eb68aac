// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

// Milliseconds, the best of several rounds: what other programs take away only makes them longer.
template <typename Work>
double bestTime(int rounds, Work work)
{
    double best = 1e9;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer clock;
        clock.start();
        work();
        best = std::min(best, double(clock.nsecsElapsed()) / 1e6);
    }
    return best;
}

inline bool report(const char *what, double ratio, const char *direction, double bound, bool ok)
{
    std::printf("%-58s %7.2f (at %s %.1f)%s\n", what, ratio, direction, bound,
                ok ? "" : "  OUT OF BOUNDS");
    return ok;
}

// Print the ratio with its bound and tell whether it is kept.
inline bool isAtLeast(const char *what, double ratio, double bound)
{
    return report(what, ratio, "least", bound, ratio >= bound);
}

inline bool isAtMost(const char *what, double ratio, double bound)
{
    return report(what, ratio, "most", bound, ratio <= bound);
}
