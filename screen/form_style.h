#pragma once

#include <QDialogButtonBox>
#include <QLabel>

namespace chengheng {

/// The heading of a log-on form: the program's picture, a large title, a quiet hint.
void styleHeading(QLabel* picture, QLabel* title, QLabel* hint);

/// A line of explanation below a field.
void styleHint(QLabel* hint);

/// Makes a form so wide that about so many Chinese characters stand in a line.
void widen(QWidget* form, int characters);

/// Chinese texts for the two buttons that end a form, whatever translations are installed.
void nameButtons(QDialogButtonBox* buttons, const char* acceptText);

}  // namespace chengheng
