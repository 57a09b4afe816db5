#pragma once

#include <functional>
#include <string>

#include "tool/tool.h"

namespace CLI {
class App;
class Option;
class ParseError;
}  // namespace CLI

namespace chengheng {

/// The numbers that an option may be given, from the least to the most.
struct NumberRange {
    int least;
    int most;
};

/// Lays the help out for a terminal, where a Chinese character is as wide as two Latin ones.
void alignHelp(CLI::App& app);

/// Adds a command on the books at a location, which is its first argument; `run` does its work once
/// the command line has been read.
CLI::App* addBooksCommand(CLI::App& app, Tool& tool, const char* name, const char* summary,
                          std::string& location, std::function<ExitCode()> run);

/// Adds an option that takes a whole number, always read as a decimal one: 010 is ten.
CLI::Option* addNumber(CLI::App& command, const char* name, int& number, NumberRange range,
                       const char* text);

/// Adds the options that name the operator who writes.
void addWriter(CLI::App& command, Tool& tool);

struct TwoWords {
    const char* first;
    const char* second;
};
/// Adds an option, or what stands at its place, that takes one of two words: whether it is the
/// first.
CLI::Option* addChoice(CLI::App& command, const char* name, TwoWords words,
                       std::function<void(bool isFirst)> set, const char* text);
/// Adds an option that takes "on" or "off".
CLI::Option* addOnOff(CLI::App& command, const char* name, std::function<void(bool)> set,
                      const char* text);

/// What is wrong with a command line.
std::string wrongUsage(const CLI::App& app, const CLI::ParseError& error);

}  // namespace chengheng
