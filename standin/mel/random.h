// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <random>
#include <string>

namespace mel {

// The streams of random numbers that rand, gauss and sphrand draw from; "" is the usual one.
// Streams are independent but equally seeded, so one stream's draws do not disturb another's.
class RandomStreams
{
public:
    // Restarts every stream, those not yet drawn from included.
    void seed(unsigned value);
    // From 0, included, to 1, excluded.
    double uniform(const std::string &stream = {});
    // From the usual stream, with mean 0 and standard deviation 1, between -6 and 6.
    double normal();

private:
    using Generator = std::mt19937;
    std::map<std::string, Generator> m_streams;
    unsigned m_seed = Generator::default_seed;
};

} // namespace mel
