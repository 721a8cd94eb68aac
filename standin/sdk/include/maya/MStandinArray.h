// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MStatus.h>

#include <vector>

STANDIN_API_OPEN

// What the array classes have in common. Indices are 0-based; a position beyond the end is
// kInvalidParameter and changes nothing.
template <class Item>
class StandinArray
{
public:
    StandinArray() = default;
    StandinArray(unsigned int size, const Item &value) : m_items(size, value) {}
    StandinArray(const Item source[], unsigned int count) : m_items(source, source + count) {}

    unsigned int length() const { return static_cast<unsigned int>(m_items.size()); }
    Item &operator[](unsigned int index) { return m_items[index]; }
    const Item &operator[](unsigned int index) const { return m_items[index]; }

    MStatus append(const Item &item)
    {
        m_items.push_back(item);
        return MStatus::kSuccess;
    }
    MStatus insert(const Item &item, unsigned int index)
    {
        if (index > length())
            return MStatus::kInvalidParameter;
        m_items.insert(m_items.begin() + index, item);
        return MStatus::kSuccess;
    }
    MStatus remove(unsigned int index)
    {
        if (index >= length())
            return MStatus::kInvalidParameter;
        m_items.erase(m_items.begin() + index);
        return MStatus::kSuccess;
    }
    MStatus set(const Item &item, unsigned int index)
    {
        if (index >= length())
            return MStatus::kInvalidParameter;
        m_items[index] = item;
        return MStatus::kSuccess;
    }
    MStatus setLength(unsigned int length)
    {
        m_items.resize(length);
        return MStatus::kSuccess;
    }
    MStatus clear()
    {
        m_items.clear();
        return MStatus::kSuccess;
    }

protected:
    void appendAll(const StandinArray &other)
    {
        m_items.reserve(m_items.size() + other.m_items.size());
        // By index: the other array may be this one.
        const unsigned int count = other.length();
        for (unsigned int i = 0; i < count; ++i)
            m_items.push_back(other.m_items[i]);
    }

private:
    std::vector<Item> m_items;
};

STANDIN_API_CLOSE
