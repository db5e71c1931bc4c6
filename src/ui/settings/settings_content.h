#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/history.h"
#include "ui/screens/shapes.h"

namespace morvane::screens {

// A sentence and where to go about it.
struct SettingsNote {
    std::string text;
    Button button;

    bool operator==(const SettingsNote&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("text", &SettingsNote::text),
                          field("button", &SettingsNote::button)};
    }
};

struct SweepingSection {
    std::string title;
    Choice schedule;
    Switch remind;
    std::optional<SettingsNote> notificationsOff;
    Switch menuBar;
    Switch trash;
    std::string trashCaption;

    bool operator==(const SweepingSection&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("title", &SweepingSection::title),
                          field("schedule", &SweepingSection::schedule),
                          field("remind", &SweepingSection::remind),
                          field("notificationsOff", &SweepingSection::notificationsOff),
                          field("menuBar", &SweepingSection::menuBar),
                          field("trash", &SweepingSection::trash),
                          field("trashCaption", &SweepingSection::trashCaption)};
    }
};

// `id` is the folder's path as it is kept.
struct IgnoredFolderRow {
    std::string id;
    std::string symbol;
    std::string label;
    bool exists = false;
    std::string tooltip;
    std::optional<Button> show;
    Button remove;

    bool operator==(const IgnoredFolderRow&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &IgnoredFolderRow::id),
                          field("symbol", &IgnoredFolderRow::symbol),
                          field("label", &IgnoredFolderRow::label),
                          field("exists", &IgnoredFolderRow::exists),
                          field("tooltip", &IgnoredFolderRow::tooltip),
                          field("show", &IgnoredFolderRow::show),
                          field("remove", &IgnoredFolderRow::remove)};
    }
};

struct IgnoreListSection {
    std::string title;
    std::vector<IgnoredFolderRow> rows;
    Button add;
    std::string footer;

    bool operator==(const IgnoreListSection&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("title", &IgnoreListSection::title), field("rows", &IgnoreListSection::rows),
            field("add", &IgnoreListSection::add), field("footer", &IgnoreListSection::footer)};
    }
};

struct HistoryRow {
    std::string id;
    std::string date;
    std::string summary;
    std::optional<std::string> problem;
    HistoryState state = HistoryState::emptied;
    std::optional<std::string> words;
    std::optional<Button> restore;

    bool operator==(const HistoryRow&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("id", &HistoryRow::id),           field("date", &HistoryRow::date),
            field("summary", &HistoryRow::summary), field("problem", &HistoryRow::problem),
            field("state", &HistoryRow::state),     field("words", &HistoryRow::words),
            field("restore", &HistoryRow::restore)};
    }
};

struct HistorySection {
    std::string title;
    std::optional<std::string> message;
    std::vector<HistoryRow> rows;
    std::string footer;

    bool operator==(const HistorySection&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("title", &HistorySection::title), field("message", &HistorySection::message),
            field("rows", &HistorySection::rows), field("footer", &HistorySection::footer)};
    }
};

struct UpdatesSection {
    std::string title;
    Switch check;
    Switch download;
    std::string version;
    Button button;

    bool operator==(const UpdatesSection&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("title", &UpdatesSection::title), field("check", &UpdatesSection::check),
            field("download", &UpdatesSection::download),
            field("version", &UpdatesSection::version), field("button", &UpdatesSection::button)};
    }
};

struct SettingsContent {
    std::string title;
    SweepingSection sweeping;
    IgnoreListSection ignoreList;
    HistorySection history;
    UpdatesSection updates;

    bool operator==(const SettingsContent&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("title", &SettingsContent::title),
                          field("sweeping", &SettingsContent::sweeping),
                          field("ignoreList", &SettingsContent::ignoreList),
                          field("history", &SettingsContent::history),
                          field("updates", &SettingsContent::updates)};
    }
};

}  // namespace morvane::screens
