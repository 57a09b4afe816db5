#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>

#include "data/access/CNbCwDB.h"
#include "data/connection/database.h"
#include "data/connection/record_buffer.h"
#include "data/connection/text_result.h"

/// What CNbCwDB keeps: the open databases, a buffer per table, and the results of free
/// selects that were not yet released.
struct CNbCwDB::Impl {
    template <class Record>
    struct Table {
        chengheng::RecordBuffer<Record> records;
        std::unique_ptr<chengheng::TextResult> texts;
    };
    template <class List>
    struct TablesOf;
    template <class... Records>
    struct TablesOf<chengheng::RecordList<Records...>> {
        using Type = std::tuple<Table<Records>...>;
    };

    std::map<std::string, std::unique_ptr<chengheng::Database>, std::less<>> databases;
    chengheng::Database* selected = nullptr;
    std::string selectedName;
    chengheng::Status status;
    TablesOf<chengheng::AllRecords>::Type tables;
    std::map<char**, std::unique_ptr<chengheng::TextResult>> results;

    template <class Record>
    Table<Record>& table() {
        return std::get<Table<Record>>(tables);
    }
    /// The open database of that name; null when there is none.
    chengheng::Database* find(const std::string& name) {
        const auto found = databases.find(name);
        return found == databases.end() ? nullptr : found->second.get();
    }
    /// Remembers the outcome; true when it is done.
    bool settle(chengheng::Status outcome) {
        using chengheng::Failure;
        status = std::move(outcome);
        const bool isLoss =
            status.failure == Failure::lost || status.failure == Failure::unreachable;
        if (isLoss && lossObserver) lossObserver(status);
        return status.isDone();
    }
    /// True when a database is selected; else the failure is remembered.
    bool hasSelected() {
        return settle(selected != nullptr
                          ? chengheng::Status::done()
                          : chengheng::Status::of(chengheng::Failure::notOpen, "no database"));
    }
    chengheng::LockWaiter* waiter = nullptr;
    std::function<void(const chengheng::Status&)> lossObserver;
    chengheng::LockIdentity identity;
};
