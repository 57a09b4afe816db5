#pragma once

/// A row in the text form: its cells as the database gives them, NULL as null.
struct TextRow {
    const char* const* cells = nullptr;
    int count = 0;
};
