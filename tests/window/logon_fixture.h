#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <memory>

#include "books/making/books_creation.h"
#include "shell/logon_window.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_books.h"
#include "tests/support/recording_messages.h"
#include "tests/window/remembered_secrets.h"
#include "tests/window/typing.h"

namespace chengheng {

/// A workstation with a list of books of its own.
struct Station {
    CreatedBooks make(const NewBooks& books = sampleBooks()) {
        CreatedBooks created;
        const auto refusal = BooksCreation(&registry).create(books, created);
        EXPECT_FALSE(refusal.has_value());
        return created;
    }
    LogonWindow& open(const LaunchOptions& options = {}) {
        window = std::make_unique<LogonWindow>(session, registry, messages, secrets, options);
        showActive(*window);
        return *window;
    }
    template <class Field>
    Field& field(const char* name) {
        return *window->findChild<Field*>(name);
    }
    void type(const char* name, const QString& text) {
        auto& edit = field<QLineEdit>(name);
        edit.selectAll();
        typeText(&edit, text);
    }

    BooksRegistry registry{freshFolder()};
    CNbCwDB database;
    WrongTries tries;
    BooksSession session{database, tries};
    RecordingMessages messages;
    RememberedSecrets secrets;
    std::unique_ptr<LogonWindow> window;
};

inline QString focusedField(const QWidget& window) {
    const QWidget* focused = window.focusWidget();
    return focused == nullptr ? QString() : focused->objectName();
}

}  // namespace chengheng
