// SPDX-License-Identifier: MIT
// A MEL loop of a million rounds against the same loop in Python, which runs as a child and
// measures itself; and the price of procedure calls, array growth and starting an interpreter.
#include "bench/measure.h"
#include "standin/mel/interpreter.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

const int rounds = 5;

class SilentHost : public mel::Host
{
public:
    void message(mel::MessageKind, const std::string &text) override { lastMessage = text; }
    void deferMel(const std::string &, mel::IdlePriority) override {}
    std::vector<std::string> deferredMel() const override { return {}; }
    std::vector<std::string> scriptPath() const override { return {}; }

    std::string lastMessage;
};

double melTime(const std::string &text)
{
    SilentHost host;
    mel::Interpreter interpreter(host);
    const double taken = bestTime(rounds, [&] {
        if (!interpreter.execute(text).ok)
            std::printf("MEL failed: %s\n", host.lastMessage.c_str());
    });
    return host.lastMessage.empty() ? taken : -1;
}

// Milliseconds that Python's own clock shows for a statement at module level; negative when there
// is no Python.
double pythonTime(const std::string &statement)
{
    const std::string script = "import time\n"
                               "code = compile('" +
                               statement +
                               "', 'loop', 'exec')\n"
                               "best = 1e9\n"
                               "for run in range(5):\n"
                               "    start = time.perf_counter()\n"
                               "    exec(code, {})\n"
                               "    best = min(best, time.perf_counter() - start)\n"
                               "print(best * 1000)\n";
    std::FILE *python = popen(("python3 -c \"" + script + "\"").c_str(), "r");
    char answer[64] = "";
    const bool answered = python && std::fgets(answer, sizeof answer, python);
    if (python)
        pclose(python);
    return answered ? std::atof(answer) : -1;
}

} // namespace

int main()
{
    SilentHost host;
    const double start = bestTime(rounds, [&] { mel::Interpreter interpreter(host); });
    const double loop = melTime("for ($i = 0; $i < 1000000; $i++) {}");
    const double calls = melTime(
        "proc int same(int $n) { return $n; } int $c; for ($c = 0; $c < 1000000; $c++) same($c);");
    const double growth =
        melTime("int $a[]; clear($a); int $k; for ($k = 0; $k < 1000000; $k++) $a[size($a)] = $k;");
    const double counting = pythonTime("i = 0\\nwhile i < 1000000: i += 1\\n");
    const double ranging = pythonTime("for i in range(1000000): pass\\n");
    if (loop < 0 || counting < 0 || ranging < 0) {
        std::printf("cannot measure: MEL %.1f, Python %.1f and %.1f\n", loop, counting, ranging);
        return 1;
    }
    std::printf("MEL, a million rounds          %8.1f ms\n", loop);
    std::printf("Python, while i < 1000000      %8.1f ms\n", counting);
    std::printf("Python, for i in range         %8.1f ms\n", ranging);
    std::printf("MEL, a million calls           %8.1f ms\n", calls);
    std::printf("MEL, a million elements        %8.1f ms\n", growth);
    bool ok = isAtMost("start of an interpreter, ms", start, 5);
    ok &= isAtMost("MEL loop / the faster of Python's", loop / std::min(counting, ranging), 2);
    return ok ? 0 : 1;
}
