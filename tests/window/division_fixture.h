#pragma once

#include <QCheckBox>
#include <QGroupBox>

#include "operators/window/division_window.h"
#include "tests/support/operator_books.h"
#include "tests/window/list_form_fixture.h"
#include "tests/window/next_modal.h"

namespace chengheng {

/// The division of work and the hands of the supervisor 张三. 李明 has groups whole, in part and
/// not at all, 赵燕 nothing.
class DivisionWindowTest : public ListFormWindowTest<OperatorBooks, DivisionWindow> {
  protected:
    void open() {
        books.insert("李明", {1, 41, 42, 57});
        books.insert("赵燕");
        ListFormWindowTest::open();
    }
    QCheckBox& box(int number) const {
        const int control = number <= 9 ? 8037 + number : 8046 + number;
        return *window->findChild<QCheckBox*>(QString::number(control));
    }
    QCheckBox& box(const char* caption) const {
        for (QCheckBox* box : window->findChildren<QCheckBox*>())
            if (box->text() == QString::fromUtf8(caption) && box->isVisible()) return *box;
        throw std::runtime_error(caption);
    }
    std::string title() const { return window->findChild<QGroupBox*>()->title().toStdString(); }
    QModelIndex item(const char* name, const char* leaf = nullptr) const {
        const QAbstractItemModel& model = *tree().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex top = model.index(row, 0);
            if (top.data().toString() != QString::fromUtf8(name)) continue;
            if (leaf == nullptr) return top;
            for (int each = 0; each < model.rowCount(top); ++each)
                if (model.index(each, 0, top).data().toString() == QString::fromUtf8(leaf))
                    return model.index(each, 0, top);
        }
        return {};
    }
    /// "李明: 个人往来 会计科目 出纳"
    std::string branch(const char* name) const {
        const QModelIndex top = item(name);
        QString text = top.data().toString() + ':';
        for (int row = 0; row < tree().model()->rowCount(top); ++row)
            text += ' ' + tree().model()->index(row, 0, top).data().toString();
        return text.toStdString();
    }
    std::string current() const { return tree().currentIndex().data().toString().toStdString(); }
    void click(const char* name, const char* leaf = nullptr) {
        if (leaf != nullptr) tree().expand(item(name));
        const QModelIndex index = item(name, leaf);
        tree().scrollTo(index);
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(index).center());
        settle();
    }
    void clickBox(const char* caption) {
        QCheckBox& clicked = box(caption);
        QTest::mouseClick(&clicked, Qt::LeftButton, {}, QPoint(8, clicked.height() / 2));
        settle();
    }
};

/// Fills the fields of the dialog of an operator.
inline void typeOperator(QWidget& dialog, const char* name, const char* password,
                         const char* confirmation) {
    const std::pair<const char*, const char*> typed[] = {
        {"sUserName", name}, {"sPassword", password}, {"confirmation", confirmation}};
    for (const auto& [field, text] : typed) {
        auto* edit = dialog.findChild<QLineEdit*>(QLatin1String(field));
        edit->setFocus();
        edit->selectAll();
        typeText(edit, QString::fromUtf8(text));
    }
}

}  // namespace chengheng
