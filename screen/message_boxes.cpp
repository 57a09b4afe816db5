#include "screen/message_boxes.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <array>
#include <optional>
#include <span>

#include "screen/screen_texts.h"

namespace chengheng {
namespace {

struct BoxButton {
    Answer answer;
    QMessageBox::StandardButton standard;
    const char* caption;
    Qt::Key key;  ///< answers as well as the mouse does; Key_unknown: none
};

constexpr std::array yesNoButtons{
    BoxButton{Answer::yes, QMessageBox::Yes, screen_texts::yes, Qt::Key_Y},
    BoxButton{Answer::no, QMessageBox::No, screen_texts::no, Qt::Key_N},
};
constexpr std::array okCancelButtons{
    BoxButton{Answer::ok, QMessageBox::Ok, screen_texts::confirm, Qt::Key_unknown},
    BoxButton{Answer::cancel, QMessageBox::Cancel, screen_texts::cancel, Qt::Key_unknown},
};
constexpr std::array yesNoCancelButtons{
    BoxButton{Answer::yes, QMessageBox::Yes, screen_texts::yes, Qt::Key_Y},
    BoxButton{Answer::no, QMessageBox::No, screen_texts::no, Qt::Key_N},
    BoxButton{Answer::cancel, QMessageBox::Cancel, screen_texts::cancel, Qt::Key_unknown},
};
constexpr std::array noticeButtons{
    BoxButton{Answer::ok, QMessageBox::Ok, screen_texts::confirm, Qt::Key_unknown},
};

std::span<const BoxButton> buttonsOf(AnswerButtons buttons) {
    switch (buttons) {
        case AnswerButtons::yesNo:
            return yesNoButtons;
        case AnswerButtons::okCancel:
            return okCancelButtons;
        case AnswerButtons::yesNoCancel:
            return yesNoCancelButtons;
    }
    return noticeButtons;
}

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::none:
            return QMessageBox::NoIcon;
        case MessageIcon::information:
            return QMessageBox::Information;
        case MessageIcon::warning:
            return QMessageBox::Warning;
        case MessageIcon::stop:
            return QMessageBox::Critical;
        case MessageIcon::question:
            return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

struct Box {
    const std::string& text;
    const std::string& detail;
    const std::string& caption;
    MessageIcon icon;
    bool beep;
    std::span<const BoxButton> buttons;  ///< the last one is the cautious one
    std::optional<Answer> preset;
};

/// A button that shows the detail instead of closing the box.
void addDetail(QMessageBox& box, const QString& detail) {
    QPushButton* button = box.addButton(screen_texts::showDetail, QMessageBox::ActionRole);
    button->setIcon(QIcon());
    button->disconnect();
    QObject::connect(button, &QPushButton::clicked, &box, [&box, button, detail] {
        box.setInformativeText(detail);
        button->setEnabled(false);
    });
}

Answer show(const Box& content) {
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(iconOf(content.icon));
    box.setWindowTitle(QString::fromStdString(content.caption));
    box.setTextFormat(Qt::PlainText);
    const std::size_t heading = content.text.find(detailHeading);
    box.setText(QString::fromStdString(content.text.substr(0, heading)));
    std::string detail = content.detail;
    if (heading != std::string::npos) {
        if (!detail.empty()) detail += '\n';
        detail += content.text.substr(heading + detailHeading.size());
    }
    if (!detail.empty()) addDetail(box, QString::fromStdString(detail));
    for (const BoxButton& offered : content.buttons) {
        QPushButton* button = box.addButton(offered.standard);
        button->setText(QString::fromUtf8(offered.caption));
        button->setIcon(QIcon());
        if (offered.key != Qt::Key_unknown) button->setShortcut(offered.key);
        if (offered.answer == content.preset.value_or(content.buttons.back().answer))
            box.setDefaultButton(button);
    }
    box.setEscapeButton(content.buttons.back().standard);
    if (content.beep) QApplication::beep();
    const int pressed = box.exec();
    for (const BoxButton& offered : content.buttons) {
        if (pressed == offered.standard) return offered.answer;
    }
    return content.buttons.back().answer;
}

void focusOn(QWidget* window, const std::string& field) {
    if (field.empty() || !window) return;
    auto* widget = window->findChild<QWidget*>(QString::fromStdString(field));
    if (!widget) return;
    widget->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
    if (auto* combo = qobject_cast<QComboBox*>(widget); combo && combo->isEditable()) {
        combo->lineEdit()->selectAll();
    }
}

}  // namespace

void MessageBoxes::tell(const Notice& notice) {
    const QPointer<QWidget> window = QApplication::activeWindow();
    show({notice.text, notice.detail, notice.caption, notice.icon, notice.beep, noticeButtons,
          Answer::ok});
    focusOn(window, notice.focusField);
}

Answer MessageBoxes::ask(const Question& question) {
    return show({question.text, question.detail, question.caption, question.icon, question.beep,
                 buttonsOf(question.buttons), question.preset});
}

}  // namespace chengheng
