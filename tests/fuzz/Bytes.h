// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace fuzz {

/// What the fuzzer made up, taken from the front.
class Bytes
{
public:
    Bytes(const std::uint8_t *data, std::size_t size)
        : m_data(data)
        , m_size(size)
    {
    }

    /// The next byte, 0 once there are none.
    std::uint8_t byte()
    {
        if (m_size == 0) {
            return 0;
        }
        --m_size;
        return *m_data++;
    }

    /// The next four bytes as a number.
    int number()
    {
        std::uint32_t bits = 0;
        for (int i = 0; i < 4; ++i) {
            bits = bits << 8 | byte();
        }
        return static_cast<int>(bits);
    }

    bool isEmpty() const { return m_size == 0; }
    const char *rest() const { return reinterpret_cast<const char *>(m_data); }
    int restSize() const { return static_cast<int>(m_size); }

private:
    const std::uint8_t *m_data;
    std::size_t m_size;
};

/// Ends the process, which makes the fuzzer keep the input, when \a fine is false.
inline void expect(bool fine, const char *what)
{
    if (!fine) {
        std::fprintf(stderr, "fuzz: not true: %s\n", what);
        std::abort();
    }
}

} // namespace fuzz
