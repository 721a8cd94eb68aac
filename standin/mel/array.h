// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace mel {

// An array as scripts have it: a value, whose copies share their elements until one of them is
// changed. Lists of thousands of names pass through many hands, and few change them.
template <typename Element>
class Array
{
public:
    using value_type = Element;
    using const_iterator = typename std::vector<Element>::const_iterator;

    Array() = default;
    Array(std::initializer_list<Element> elements) : Array(std::vector<Element>(elements)) {}
    Array(std::vector<Element> elements)
        : m_elements(std::make_shared<std::vector<Element>>(std::move(elements)))
    {
    }

    size_t size() const { return m_elements ? m_elements->size() : 0; }
    bool empty() const { return size() == 0; }
    const Element &operator[](size_t index) const { return (*m_elements)[index]; }
    const_iterator begin() const { return elements().begin(); }
    const_iterator end() const { return elements().end(); }

    const std::vector<Element> &elements() const
    {
        static const std::vector<Element> none;
        return m_elements ? *m_elements : none;
    }
    // For changing them; a reference into the array that was got before may be one of the others'.
    std::vector<Element> &edit()
    {
        if (!m_elements || m_elements.use_count() > 1)
            m_elements = std::make_shared<std::vector<Element>>(elements());
        return *m_elements;
    }
    // The elements, which are copied only when others have them too. Nothing of them stays here.
    std::vector<Element> take()
    {
        std::vector<Element> taken = std::move(edit());
        m_elements.reset();
        return taken;
    }

    friend bool operator==(const Array &a, const Array &b)
    {
        return a.m_elements == b.m_elements || a.elements() == b.elements();
    }

private:
    std::shared_ptr<std::vector<Element>> m_elements; // null: none
};

} // namespace mel
