// SPDX-License-Identifier: MIT
#pragma once

#include <maya/MStandinSupport.h>
#include <maya/MStatus.h>

#include <vector>

STANDIN_API_OPEN

// What the array classes have in common. An array owns its items and copies are independent.
// Indices are 0-based; a position beyond the end is kInvalidParameter and changes nothing.
// Deliberate: no iterators, since early releases have none and code written here must build there.
template <class Item>
class StandinArray
{
public:
    StandinArray() = default;
    StandinArray(unsigned int size, const Item &value) : m_items(size, value) {}
    // Copies `count` items; the source may go afterwards.
    StandinArray(const Item source[], unsigned int count) : m_items(source, source + count) {}

    unsigned int length() const { return static_cast<unsigned int>(m_items.size()); }
    // Unchecked. The reference is good until the array changes its length.
    Item &operator[](unsigned int index) { return m_items[index]; }
    const Item &operator[](unsigned int index) const { return m_items[index]; }

    MStatus append(const Item &item)
    {
        m_items.push_back(item);
        return MStatus::kSuccess;
    }
    // In front of the item at the index; the length as index appends.
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
    // Cuts items off the end, or adds default ones there.
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
