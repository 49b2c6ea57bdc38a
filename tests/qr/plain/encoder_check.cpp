// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// Tests the encoder without Qt. Full, half full and nearly empty symbols of every version and level
// are made in every way that this build has, and compared with those that are made the slow way.
// Their bytes are the same on all processors: a hash holds that.

#include "qr/QrEncoder.h"
#include "tests/qr/Makers.h"
#include "tests/qr/SlowEncoder.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

using namespace om::controls;

namespace {

int failures = 0;

void fail(const char *what, const char *way, int version, int level, int length)
{
    std::printf("FAIL %s: %s, version %d, level %c, %d bytes\n", way, what, version, "LMQH"[level],
                length);
    ++failures;
}

std::string randomText(std::mt19937 &random, int length)
{
    std::string text;
    while (int(text.size()) < length)
        text.push_back(static_cast<char>(random() & 0xff));
    return text;
}

/// FNV-1a.
class Hash
{
public:
    void add(const unsigned char *bytes, int count)
    {
        for (int index = 0; index < count; ++index)
            m_value = (m_value ^ bytes[index]) * 0x100000001b3;
    }

    std::uint64_t value() const { return m_value; }

private:
    std::uint64_t m_value = 0xcbf29ce484222325;
};

/// Makes all symbols in all ways.
void checkSymbols()
{
    constexpr std::uint64_t expectedHash = 0x1601a0780495a78c;
    const std::vector<NamedMaker> ways = makers();
    std::vector<Hash> hashes(ways.size());
    std::mt19937 random(1); // The standard says what it yields.
    for (int version = 1; version <= 40; ++version) {
        for (int level = 0; level < 4; ++level) {
            const int capacity = qr::byteCapacity(level, version);
            for (int length : {1, (capacity + 1) / 2, capacity}) {
                const std::string text = randomText(random, length);
                const slow::Symbol expected = slow::encode(level, version, text);
                for (std::size_t index = 0; index < ways.size(); ++index) {
                    const NamedMaker &way = ways[index];
                    unsigned char result[QrResultBytes];
                    std::memset(result, 0xff, sizeof result);
                    const int size =
                        qr::encode(way.maker, level, version, text.data(), length, result);
                    hashes[index].add(result, QrResultBytes);
                    if (size != expected.size)
                        fail("wrong size", way.name, version, level, length);
                    if (std::memcmp(result, expected.result.data(), sizeof result) != 0)
                        fail("not as the slow way", way.name, version, level, length);
                }
            }
        }
    }
    for (std::size_t index = 0; index < ways.size(); ++index) {
        const char *name = ways[index].name;
        if (hashes[index].value() == expectedHash) {
            std::printf("%s: all symbols as known\n", name);
        } else {
            std::printf("FAIL %s: the hash of all symbols is %016llx\n", name,
                        static_cast<unsigned long long>(hashes[index].value()));
            ++failures;
        }
    }
}

/// The entry point chooses the version, takes a way of its own, and clears the result when it
/// fails.
void checkEntry()
{
    for (int length : {1, 17, 18, 230, 231, 2953}) {
        const std::string text(static_cast<std::size_t>(length), 'e');
        const slow::Symbol expected = slow::encode(0, 0, text);
        unsigned char result[QrResultBytes];
        const int size = qrEncode(0, 0, text.c_str(), 0, result);
        if (size != expected.size
            || std::memcmp(result, expected.result.data(), sizeof result) != 0)
            fail("not as the slow way", "qrEncode", 0, 0, length);
    }
    const std::string tooLong(2954, 'e');
    unsigned char result[QrResultBytes];
    std::memset(result, 0xff, sizeof result);
    int dirty = qrEncode(0, 0, tooLong.c_str(), 2954, result) != -1;
    for (unsigned char byte : result)
        dirty |= byte;
    if (dirty)
        fail("too long a text is taken", "qrEncode", 0, 0, 2954);
}

} // namespace

int main()
{
    checkSymbols();
    checkEntry();
    return failures ? 1 : 0;
}
