#include "screen/form_style.h"

#include <QIcon>
#include <QPushButton>

#include "screen/resources.h"
#include "screen/screen_texts.h"

namespace chengheng {
namespace {

constexpr int headingPictureSize = 48;
constexpr double titleScale = 1.5;

void quieten(QLabel* label) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, palette.color(QPalette::PlaceholderText));
    label->setPalette(palette);
}

}  // namespace

void styleHeading(QLabel* picture, QLabel* title, QLabel* hint) {
    picture->setPixmap(applicationIcon().pixmap(QSize(headingPictureSize, headingPictureSize),
                                                picture->devicePixelRatio()));
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * titleScale);
    font.setBold(true);
    title->setFont(font);
    quieten(hint);
}

void styleHint(QLabel* hint) {
    hint->setTextFormat(Qt::PlainText);
    hint->setWordWrap(true);
    quieten(hint);
}

void widen(QWidget* form, int characters) {
    form->setMinimumWidth(form->fontMetrics().horizontalAdvance(screen_texts::wideCharacter) *
                          characters);
}

void nameButtons(QDialogButtonBox* buttons, const char* acceptText) {
    QPushButton* accept = buttons->button(QDialogButtonBox::Ok);
    accept->setText(acceptText);
    accept->setDefault(true);
    QPushButton* cancel = buttons->button(QDialogButtonBox::Cancel);
    cancel->setText(screen_texts::cancel);
    for (QPushButton* button : {accept, cancel}) button->setIcon(QIcon());
}

}  // namespace chengheng
