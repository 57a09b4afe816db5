#pragma once

#include <string>
#include <string_view>

namespace chengheng {

/// The parts of a server's address as an operator enters them. A password is none of them.
struct ServerFields {
    std::string host;
    std::string port;  ///< empty: the usual one
    std::string database;
    std::string schema;
    std::string user;
    std::string others = {};  ///< further parameters as they stand in the address

    bool operator==(const ServerFields&) const = default;
};

/// The parts of "postgresql://user@host:port/database?schema=name"; of any other text none.
ServerFields serverFieldsOf(std::string_view address);

/// The address that the parts make.
std::string addressOf(const ServerFields& fields);

}  // namespace chengheng
