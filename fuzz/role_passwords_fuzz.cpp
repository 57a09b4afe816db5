// Reads any bytes as passwords of roles: what is told of a line holds nothing of it but the name.

#include "operators/roles/role_passwords.h"

#include "fuzz/fuzz_support.h"

using namespace chengheng;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    const std::string_view text = input.text();
    std::vector<RolePassword> passwords;
    const auto refusal = readRolePasswords(text, passwords);
    require(!refusal || !refusal->notice.text.empty(), "a refusal says why");
    int line = 0;
    for (const RolePassword& each : passwords) {
        require(each.line > line, "lines come in their order");
        require(!each.password.empty(), "nobody gets an empty password");
        require(text.find("\t" + each.password) != std::string_view::npos,
                "a password stands as it is behind a tab");
        line = each.line;
    }
    return 0;
}
