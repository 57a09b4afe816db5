#include "tool/command_line.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <charconv>
#include <memory>
#include <string_view>

#include "sheets/text_measures.h"
#include "tool/tool_texts.h"
#include "tool/writer_texts.h"

namespace chengheng {
namespace {

constexpr const char* numberType = "INT";

class AlignedHelp : public CLI::Formatter {
  public:
    std::string make_option(const CLI::Option* option, bool isPositional) const override {
        return line(make_option_name(option, isPositional) + make_option_opts(option),
                    make_option_desc(option));
    }
    std::string make_subcommand(const CLI::App* command) const override {
        return line(command->get_display_name(true), command->get_description());
    }
    std::string make_option_opts(const CLI::Option* option) const override {
        const std::string type = option->get_type_name();
        const bool takesValue = option->nonpositional() && !type.empty();
        const bool isNumber = type == numberType;
        std::string signs;
        if (takesValue) signs += isNumber ? tool_texts::numberLabel : tool_texts::valueLabel;
        if (option->get_required()) signs += tool_texts::requiredLabel;
        return signs;
    }

  private:
    std::string line(const std::string& name, const std::string& words) const {
        const std::string margin(get_column_width(), ' ');
        std::string text = "  " + name;
        const auto width = static_cast<std::size_t>(displayWidth(text));
        text += width < margin.size() ? margin.substr(width) : "\n" + margin;
        return text + CLI::detail::find_and_replace(words, "\n", "\n" + margin) + "\n";
    }
};

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        if (word != "--") text += (text.empty() ? "" : " ") + word;
    return text;
}

}  // namespace

void alignHelp(CLI::App& app) {
    const auto help = std::make_shared<AlignedHelp>();
    help->label("Usage", tool_texts::usageLabel);
    help->label("Positionals", tool_texts::argumentsLabel);
    help->label("OPTIONS", tool_texts::optionGroup);
    help->label("SUBCOMMAND", tool_texts::commandGroup);
    app.formatter(help);
}

CLI::App* addBooksCommand(CLI::App& app, Tool& tool, const char* name, const char* summary,
                          std::string& location, std::function<ExitCode()> run) {
    CLI::App* command = app.add_subcommand(name, summary);
    command->add_option("BOOKS", location, tool_texts::booksArgument)->required();
    command->callback([&tool, run = std::move(run)] { tool.action = run; });
    return command;
}

CLI::Option* addNumber(CLI::App& command, const char* name, int& number, NumberRange range,
                       const char* text) {
    const auto read = [name, &number, range](const std::string& digits) {
        const char* const end = digits.data() + digits.size();
        const auto result = std::from_chars(digits.data(), end, number);
        if (result.ec == std::errc::invalid_argument || result.ptr != end)
            throw CLI::ValidationError(fmt::format(tool_texts::notNumber, name, digits));
        if (result.ec != std::errc() || number < range.least || number > range.most)
            throw CLI::ValidationError(
                fmt::format(tool_texts::outOfRange, name, range.least, range.most, digits));
    };
    return command.add_option_function<std::string>(name, read, text)->type_name(numberType);
}

void addWriter(CLI::App& command, Tool& tool) {
    const auto add = [&command](const char* name, std::string& text, const char* words) {
        // An empty one would mean the administrator.
        const auto read = [name, &text](const std::string& given) {
            if (given.empty())
                throw CLI::ValidationError(fmt::format(tool_texts::optionEmpty, name));
            text = given;
        };
        return command.add_option_function<std::string>(name, read, words);
    };
    CLI::Option* name = add("--operator", tool.writer.name, tool_texts::operatorOption);
    CLI::Option* file =
        add("--password-file", tool.writer.passwordFile, tool_texts::operatorPasswordOption);
    name->needs(file);
    file->needs(name);
}

CLI::Option* addChoice(CLI::App& command, const char* name, TwoWords words,
                       std::function<void(bool)> set, const char* text) {
    const auto read = [name, words, set = std::move(set)](const std::string& word) {
        if (word != words.first && word != words.second)
            throw CLI::ValidationError(
                fmt::format(tool_texts::notOneOfTwo, name, words.first, words.second, word));
        set(word == words.first);
    };
    return command.add_option_function<std::string>(name, read, text);
}

CLI::Option* addOnOff(CLI::App& command, const char* name, std::function<void(bool)> set,
                      const char* text) {
    return addChoice(command, name, {"on", "off"}, std::move(set), text);
}

std::string wrongUsage(const CLI::App& app, const CLI::ParseError& error) {
    const std::string extra = joined(app.remaining(true));
    const bool hasCommand = !app.get_subcommands().empty();
    const std::string words = extra.empty() ? tool_texts::usageFault(error.get_name(), error.what())
                              : hasCommand  ? fmt::format(tool_texts::unexpected, extra)
                                            : fmt::format(tool_texts::unknownCommand, extra);
    return words + tool_texts::seeHelp;
}

}  // namespace chengheng
