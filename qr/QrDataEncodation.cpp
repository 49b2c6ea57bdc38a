// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"

namespace om::controls::qr {

namespace {

constexpr int ModeBits = 4;
constexpr int ByteModeIndicator = 4;
constexpr int StreamCapacity = 8 * MaximumDataCodewords;

/// Eight bytes as a number, the first the most significant. Written out, so that a compiler sees
/// one load and, where the processor has the bytes the other way round, one swap.
std::uint64_t load(const char *bytes)
{
    const auto *next = reinterpret_cast<const unsigned char *>(bytes);
    return std::uint64_t(next[0]) << 56 | std::uint64_t(next[1]) << 48
        | std::uint64_t(next[2]) << 40 | std::uint64_t(next[3]) << 32 | std::uint64_t(next[4]) << 24
        | std::uint64_t(next[5]) << 16 | std::uint64_t(next[6]) << 8 | std::uint64_t(next[7]);
}

void store(std::uint64_t value, unsigned char *bytes)
{
    bytes[0] = static_cast<unsigned char>(value >> 56);
    bytes[1] = static_cast<unsigned char>(value >> 48);
    bytes[2] = static_cast<unsigned char>(value >> 40);
    bytes[3] = static_cast<unsigned char>(value >> 32);
    bytes[4] = static_cast<unsigned char>(value >> 24);
    bytes[5] = static_cast<unsigned char>(value >> 16);
    bytes[6] = static_cast<unsigned char>(value >> 8);
    bytes[7] = static_cast<unsigned char>(value);
}

} // namespace

int alphanumericValue(char character)
{
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    if (character >= 'A' && character <= 'Z') {
        return character - 'A' + 10;
    }
    switch (character) {
    case ' ':
        return 36;
    case '$':
        return 37;
    case '%':
        return 38;
    case '*':
        return 39;
    case '+':
        return 40;
    case '-':
        return 41;
    case '.':
        return 42;
    case '/':
        return 43;
    default:
        return 44;
    }
}

std::int64_t segmentBits(Mode mode, std::int64_t count, int group)
{
    const std::int64_t header = ModeBits + countWidths[group][mode];
    switch (mode) {
    case Numeric:
        return header + 10 * (count / 3) + (count % 3 == 0 ? 0 : count % 3 == 1 ? 4 : 7);
    case Alphanumeric:
        return header + 11 * (count / 2) + 6 * (count % 2);
    case EightBit:
        return header + 8 * count;
    default: // Kanji
        return header + 13 * (count / 2);
    }
}

int byteCapacity(int level, int version)
{
    const int header = ModeBits + countWidths[groupOf(version)][EightBit];
    return (8 * versionTable[version].data[level] - header) / 8;
}

int chooseVersion(int level, int requested, std::int64_t length)
{
    constexpr int groupEnds[3] = {9, 26, MaximumVersion};
    for (int group = groupOf(requested); group < 3; ++group) {
        const std::int64_t codewords = (segmentBits(EightBit, length, group) + 7) / 8;
        for (int version = group ? groupEnds[group - 1] + 1 : 1; version <= groupEnds[group];
             ++version) {
            if (versionTable[version].data[level] >= codewords) {
                return version;
            }
        }
    }
    return 0;
}

bool BitStream::append(unsigned value, int count)
{
    if (m_failed || m_bits + count > StreamCapacity) {
        m_failed = true;
        return false;
    }
    while (count > 0) {
        const int used = m_bits & 7;
        const int taken = count < 8 - used ? count : 8 - used;
        const unsigned part = value >> (count - taken) & ((1u << taken) - 1);
        unsigned char &byte = m_buffer[m_bits >> 3];
        byte = static_cast<unsigned char>((used ? byte : 0u) | part << (8 - used - taken));
        m_bits += taken;
        count -= taken;
    }
    return true;
}

bool BitStream::appendBytes(const char *bytes, int count)
{
    if (m_failed || count > (StreamCapacity - m_bits) / 8) {
        m_failed = true;
        return false;
    }
    // The bits of the byte that is begun stay in front of the new ones, which follow eight bytes at
    // a time.
    const int used = m_bits & 7;
    unsigned char *place = m_buffer + (m_bits >> 3);
    std::uint64_t begun = used ? std::uint64_t(*place) << 56 : 0;
    int index = 0;
    for (; used && count - index > 8; index += 8, place += 8) {
        const std::uint64_t next = load(bytes + index);
        store(begun | next >> used, place);
        begun = next << (64 - used);
    }
    for (; index < count; ++index) {
        const std::uint64_t next = std::uint64_t(static_cast<unsigned char>(bytes[index])) << 56;
        *place++ = static_cast<unsigned char>((begun | next >> used) >> 56);
        begun = used ? next << (8 - used) : 0;
    }
    if (used) {
        *place = static_cast<unsigned char>(begun >> 56);
    }
    m_bits += 8 * count;
    return true;
}

void encodeData(int level, int version, const char *text, int length, unsigned char *codewords)
{
    constexpr unsigned padding[2] = {0xec, 0x11};
    const int capacity = versionTable[version].data[level];
    BitStream stream(codewords);
    stream.append(ByteModeIndicator, ModeBits);
    stream.append(static_cast<unsigned>(length), countWidths[groupOf(version)][EightBit]);
    stream.appendBytes(text, length);

    // The standard cuts the terminator where less than its four bits are left. That never happens
    // here: mode and count take four bits more than whole bytes, so four bits are always left.
    stream.append(0, 4);
    const int used = (stream.bits() + 7) / 8;
    for (int index = used; index < capacity; ++index) {
        codewords[index] = static_cast<unsigned char>(padding[(index - used) & 1]);
    }
}

} // namespace om::controls::qr
