#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/values/status.h"
#include "data/engine/engine.h"

namespace chengheng {

/// Connects to a database: the path of a file, ":memory:", or
/// "postgresql://user@host:port/database?schema=name". Tells nothing about what lies in it.
Status openEngine(std::string_view location, OpenMode mode, std::unique_ptr<Engine>& engine);

/// True for the address of a PostgreSQL server.
bool isServerAddress(std::string_view location);

/// The location as an operator may see it: without a password.
std::string shownLocation(std::string_view location);

/// The password that an address holds; empty when it holds none.
std::string serverPasswordIn(std::string_view location);

/// An address without the password of its server; what else is secret in it stays.
std::string withoutServerPassword(std::string_view location);

/// An address with a password, whatever stands in the password.
std::string withServerPassword(std::string_view location, std::string_view password);

/// Writes over the secrets of an address anywhere in an argument of the command line, which
/// everybody on the machine can read there. The length stays.
void hideServerPassword(char* argument);

}  // namespace chengheng
