// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <random>
#include <string>

namespace mel {

// The streams of random numbers that rand, gauss and sphrand draw from; "" is the usual one.
class RandomStreams
{
public:
    void seed(unsigned value);
    // From 0, included, to 1, excluded.
    double uniform(const std::string &stream = {});
    double normal();

private:
    using Generator = std::mt19937;
    std::map<std::string, Generator> m_streams;
    unsigned m_seed = Generator::default_seed;
};

} // namespace mel
