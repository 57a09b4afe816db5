#include "session/rights/password_advice.h"

#include <algorithm>
#include <array>

#include "base/values/text.h"
#include "session/rights_texts.h"

namespace chengheng {
namespace {

/// Those that head every list of passwords that became known, and what a keyboard suggests.
constexpr std::array commonest{
    "000000",   "111111",   "112233",     "11223344", "123",      "123123",     "123321",
    "1234",     "12345",    "123456",     "1234567",  "12345678", "123456789",  "1234567890",
    "123456a",  "123456aa", "123abc",     "123qwe",   "147258",   "147258369",  "159357",
    "1q2w3e",   "1q2w3e4r", "1qaz2wsx",   "222222",   "333333",   "5201314",    "520520",
    "555555",   "654321",   "666666",     "6666666",  "66666666", "777777",     "789456",
    "88888",    "888888",   "8888888",    "88888888", "987654",   "987654321",  "999999",
    "a123456",  "a1b2c3",   "aa123456",   "aaaaaa",   "abc123",   "abc123456",  "abcd1234",
    "admin",    "admin123", "asdfgh",     "iloveyou", "kuaiji",   "password",   "password1",
    "passw0rd", "qq123456", "qwe123",     "qwer1234", "qwerty",   "qwertyuiop", "root",
    "test",     "woaini",   "woaini1314", "zhuguan",  "zxcvbn",   "zxcvbnm",
};

}  // namespace

const char* passwordAdvice(std::string_view password, std::string_view name) {
    if (password.empty()) return rights_texts::withoutPassword;
    if (!name.empty() && isSameInAnyCase(password, name)) return rights_texts::passwordIsName;
    const bool isCommon = std::ranges::any_of(
        commonest, [&](const char* known) { return isSameInAnyCase(password, known); });
    return isCommon ? rights_texts::commonPassword : "";
}

}  // namespace chengheng
