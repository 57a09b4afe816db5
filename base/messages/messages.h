#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace chengheng {

/// The picture of a message box.
enum class MessageIcon { none, information, warning, stop, question };

/// The caption of every box that names no other.
inline constexpr const char* defaultCaption = "澄恒财务软件";

/// Something the operator is told.
struct Notice {
    std::string text;
    MessageIcon icon = MessageIcon::information;
    std::string caption = defaultCaption;
    bool beep = false;
    /// Prescribed name of the field that gets the focus afterwards; empty: none.
    std::string focusField = {};
    /// What only a helper needs to know; in a box it stands behind a button.
    std::string detail = {};
};

enum class AnswerButtons { yesNo, okCancel, yesNoCancel };
enum class Answer { yes, no, ok, cancel };

/// Something the operator is asked.
struct Question {
    std::string text;
    AnswerButtons buttons = AnswerButtons::yesNo;
    MessageIcon icon = MessageIcon::question;
    std::string caption = defaultCaption;
    bool beep = false;
    /// What Enter gives: the cautious one (no, cancel) unless another loses nothing either. Escape
    /// always gives the cautious one.
    std::optional<Answer> preset = {};
    std::string detail = {};  ///< as that of a notice
};

/// Begins the detail of a text that holds one, as texts for a terminal do: an engine's own words,
/// which are English.
inline constexpr std::string_view detailHeading = "\n详细信息:";

/// The only way to talk to the operator. Handed in, never global.
class IMessages {
  public:
    virtual ~IMessages() = default;
    virtual void tell(const Notice& notice) = 0;
    virtual Answer ask(const Question& question) = 0;
};

}  // namespace chengheng
