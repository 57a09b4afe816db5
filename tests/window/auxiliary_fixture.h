#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBar>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "auxiliary/window/auxiliary_window.h"
#include "data/lookups/cached_records.h"
#include "session/host_messages.h"
#include "tests/support/entry_books.h"
#include "tests/window/grid_window.h"

namespace chengheng {

using EntryTexts = std::vector<std::string>;

/// The window of a member, whose inside a test can reach.
class OpenAuxiliary : public AuxiliaryWindow {
  public:
    using AuxiliaryWindow::AuxiliaryWindow;

    CVCF1& entries() const { return *findChild<CVCF1*>("entries"); }
    CVCF1& totals() const { return *findChild<CVCF1*>("totals"); }
    QLineEdit& filter() const { return *findChild<QLineEdit*>("filter"); }
    QComboBox& accounts() const { return *findChild<QComboBox*>("lCodeId"); }
    std::string label(const char* name) const {
        return findChild<QLabel*>(QString::fromUtf8(name))->text().toStdString();
    }
    QAction& command(const char* text) const {
        for (QAction* action : findChild<QToolBar*>()->actions())
            if (action->text() == QString::fromUtf8(text)) return *action;
        throw std::runtime_error(text);
    }
    void choose(const char* text) {
        command(text).trigger();
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
};

/// The window of the unit member on books in memory.
class AuxiliaryWindowTest : public testing::Test {
  protected:
    /// The cells of each row, with | between them.
    static EntryTexts rowsOf(const CVCF1& grid) {
        EntryTexts rows;
        for (int row = 0; row < grid.model()->rowCount(); ++row) {
            std::string& text = rows.emplace_back();
            for (int column = 0; column < grid.model()->columnCount(); ++column)
                text += (column > 0 ? "|" : "") +
                        grid.model()->index(row, column).data().toString().toStdString();
        }
        return rows;
    }

    /// Puts a text into a field of a dialog and leaves it.
    static void enter(QWidget& dialog, const char* field, const char* text) {
        auto* edit = dialog.findChild<QLineEdit*>(QString::fromLatin1(field));
        ASSERT_NE(edit, nullptr) << field;
        edit->setFocus();
        edit->selectAll();
        edit->insert(QString::fromUtf8(text));
    }

    static void click(QWidget& dialog, const char* button) {
        for (auto* each : dialog.findChildren<QPushButton*>())
            if (each->text() == QString::fromUtf8(button)) return each->click();
        FAIL() << button;
    }

    void add(int which, double money) {
        AuxiliaryEntry entry = EntryBooks::entry(member, which, money);
        ASSERT_EQ(books.service(member).add(books.account(member), entry), Outcome::done);
    }
    void open(bool isBrowsing = false) {
        window.emplace(member, accountCode(member), isBrowsing, nullptr);
        showActive(*window);
        QCoreApplication::processEvents();
    }
    EntryTexts rows() const { return rowsOf(window->entries()); }

    EntryBooks books{":memory:"};
    HostMessages installed{books.messages()};
    BookLookups lookups{"books"};
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unit);
    std::optional<OpenAuxiliary> window;
};

}  // namespace chengheng
