// SPDX-License-Identifier: MIT
#include "standin/mel/random.h"

namespace mel {

void RandomStreams::seed(unsigned value)
{
    m_seed = value;
    m_streams.clear();
}

double RandomStreams::uniform(const std::string &stream)
{
    // A stream begins with the seed when it is first drawn from.
    const auto found = m_streams.try_emplace(stream, m_seed).first;
    // The library's distributions may differ between compilers; this sequence does not.
    // Two to the power of 32, one more than the generator's largest number.
    return found->second() / 4294967296.0;
}

// By the sum of uniform numbers, which needs no logarithm of zero.
double RandomStreams::normal()
{
    double sum = -6;
    for (int i = 0; i < 12; ++i)
        sum += uniform();
    return sum;
}

} // namespace mel
