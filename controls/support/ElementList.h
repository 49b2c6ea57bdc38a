// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QMetaObject>
#include <QObject>
#include <QPointer>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace om::controls {

/// The elements of a list property, in order; null and repeated ones are kept. They are not owned:
/// a destroyed one leaves the list.
///
/// An element may be in several lists, and each learns of its end after the one before has told
/// what listens to it: until then, an element that is being destroyed reads null.
template<typename T>
class ElementList
{
    Q_DISABLE_COPY(ElementList)
public:
    /// \a left is called after a destroyed element has left the list, with the element's address.
    explicit ElementList(std::function<void(T *)> left)
        : m_left(std::move(left))
    {
    }
    ~ElementList() { clear(); }

    void append(T *element)
    {
        removeDestroyed();
        m_elements.push_back({element, element});
        if (element && !m_watches.contains(element)) {
            // The list is no QObject, so it ends the connection itself.
            const QMetaObject::Connection watch =
                QObject::connect(element, &QObject::destroyed, // clazy:exclude=connect-3arg-lambda
                                 [this, element] { forget(element); });
            m_watches.insert(element, watch);
        }
    }

    /// Whether there was something to clear.
    bool clear()
    {
        removeDestroyed();
        // By their handles: disconnect(element, receiver) would also cut the application's
        // connections.
        for (const QMetaObject::Connection &watch : qAsConst(m_watches)) {
            QObject::disconnect(watch);
        }
        m_watches.clear();
        const bool any = !m_elements.empty();
        m_elements.clear();
        return any;
    }

    int count() const
    {
        removeDestroyed();
        return static_cast<int>(m_elements.size());
    }

    /// Null outside the list.
    T *at(int index) const
    {
        return index >= 0 && index < count() ? m_elements[static_cast<std::size_t>(index)].alive
                                             : nullptr;
    }

    bool contains(const T *element) const
    {
        return std::any_of(m_elements.cbegin(), m_elements.cend(),
                           [element](const Element &other) { return other.alive == element; });
    }

    /// All of them as they are now.
    std::vector<QPointer<T>> snapshot() const
    {
        removeDestroyed();
        std::vector<QPointer<T>> elements;
        elements.reserve(m_elements.size());
        for (const Element &element : m_elements) {
            elements.push_back(element.alive);
        }
        return elements;
    }

private:
    struct Element
    {
        /// Tells one that was destroyed from a null one.
        T *identity;
        QPointer<T> alive;

        bool isDestroyed() const { return identity && !alive; }
    };

    void forget(T *element)
    {
        m_watches.remove(element);
        m_hasDestroyed = true;
        m_left(element);
    }

    /// Called by each function that reads or changes the list, not by forget(): a search of the
    /// list for each destroyed element would make destroying n of them quadratic.
    void removeDestroyed() const
    {
        if (!m_hasDestroyed) {
            return;
        }
        m_elements.erase(
            std::remove_if(m_elements.begin(), m_elements.end(),
                           [](const Element &element) { return element.isDestroyed(); }),
            m_elements.end());
        m_hasDestroyed = false;
    }

    const std::function<void(T *)> m_left;
    mutable std::vector<Element> m_elements;
    mutable bool m_hasDestroyed = false;
    /// One connection an element, however often it is listed.
    QHash<T *, QMetaObject::Connection> m_watches;
};

} // namespace om::controls
