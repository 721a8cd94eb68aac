// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <new>
#include <utility>

namespace mel {

// Items of one call, as many as it says beforehand. Up to `usual` of them lie in the list itself,
// so that most calls need no memory from the heap. They never move.
template <typename Item, size_t usual>
class ShortList
{
public:
    explicit ShortList(size_t capacity)
        : m_items(capacity > usual ? std::allocator<Item>().allocate(capacity) : inside()),
          m_capacity(capacity)
    {
    }
    ~ShortList()
    {
        std::destroy_n(m_items, m_count);
        if (m_capacity > usual)
            std::allocator<Item>().deallocate(m_items, m_capacity);
    }
    ShortList(const ShortList &) = delete;
    ShortList &operator=(const ShortList &) = delete;

    // One more, up to the capacity.
    template <typename... Parts>
    Item &add(Parts &&...parts)
    {
        Item *item = new (m_items + m_count) Item{std::forward<Parts>(parts)...};
        ++m_count; // only now, as making it may have failed
        return *item;
    }

    Item &operator[](size_t index) const { return m_items[index]; }
    Item *data() const { return m_items; }

private:
    Item *inside() { return reinterpret_cast<Item *>(m_memory); }

    alignas(Item) unsigned char m_memory[usual * sizeof(Item)];
    Item *m_items;
    size_t m_capacity;
    size_t m_count = 0;
};

} // namespace mel
