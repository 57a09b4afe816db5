#include "forms/discard_input.h"

#include "forms/form_texts.h"

namespace chengheng {

bool mayDiscardInput(IMessages& messages) {
    return messages.ask({.text = form_texts::discardInput, .icon = MessageIcon::warning}) ==
           Answer::yes;
}

}  // namespace chengheng
