#include "data/log/chain.h"

#include <sodium.h>

#include <array>
#include <span>

namespace chengheng {
namespace {

constexpr std::size_t hashBytes = 32;

crypto_generichash_state* stateIn(unsigned char* bytes) {
    return reinterpret_cast<crypto_generichash_state*>(bytes);
}

std::string hexOf(std::span<const unsigned char> bytes) {
    std::string digits(bytes.size() * 2 + 1, '\0');
    sodium_bin2hex(digits.data(), digits.size(), bytes.data(), bytes.size());
    digits.pop_back();  // the end mark
    return digits;
}

}  // namespace

ChainHash::ChainHash() {
    static_assert(sizeof(crypto_generichash_state) <= sizeof m_state);
    crypto_generichash_init(stateIn(m_state), nullptr, 0, hashBytes);
}

void ChainHash::add(std::string_view text) {
    const std::string length = std::to_string(text.size()) + ':';
    for (const std::string_view each : {std::string_view(length), text})
        crypto_generichash_update(stateIn(m_state),
                                  reinterpret_cast<const unsigned char*>(each.data()), each.size());
}

std::string ChainHash::text() const {
    ChainHash ended = *this;
    std::array<unsigned char, hashBytes> hash{};
    crypto_generichash_final(stateIn(ended.m_state), hash.data(), hash.size());
    return hexOf(hash);
}

std::string entryHash(std::string_view hashBefore, const LogEntry& entry) {
    ChainHash hash;
    hash.add(hashBefore);
    hash.add(entry.number);
    hash.add(entry.time);
    hash.add(std::int64_t{entry.operatorId});
    hash.add(entry.operatorName);
    hash.add(entry.workstation);
    hash.add(entry.process);
    hash.add(entry.program);
    hash.add(std::int64_t{entry.function});
    hash.add(entry.words);
    hash.add(entry.unit);
    hash.add(std::int64_t{entry.parts});
    hash.add(entry.rows);
    hash.add(entry.partsHash);
    return hash.text();
}

std::string newUnitName() {
    std::array<unsigned char, 16> random{};
    randombytes_buf(random.data(), random.size());
    return hexOf(random);
}

}  // namespace chengheng
