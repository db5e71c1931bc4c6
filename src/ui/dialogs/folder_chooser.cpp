#include "ui/dialogs/folder_chooser.h"

#include <QTimer>
#include <utility>

#include "model/path_text.h"
#include "tasks/background.h"
#include "ui/screens/shapes.h"
#include "ui/window/variant_writer.h"

namespace morvane {

namespace {

RowSelection::How howBy(Qt::KeyboardModifiers modifiers) {
    if (modifiers.testFlag(Qt::ShiftModifier)) return RowSelection::How::extended;
    if (modifiers.testFlag(Qt::ControlModifier)) return RowSelection::How::toggled;
    return RowSelection::How::alone;
}

QVariantMap asMap(const screens::Button& button) {
    return toVariant(button).toMap();
}

}  // namespace

FolderChooser::FolderChooser(Platform platform, Scope& scope, QObject* parent)
    : QObject(parent), platform_(std::move(platform)), scope_(scope) {
    connect(&rows_, &FolderRows::selectionChanged, this, &FolderChooser::told);
}

FolderChooser::~FolderChooser() {
    *isAlive_ = false;
    if (chosen_) std::exchange(chosen_, nullptr)(std::nullopt);
}

void FolderChooser::choose(const Workspace::FolderPanel& panel, Chosen chosen) {
    if (chosen_) {
        QTimer::singleShot(0, this, [chosen = std::move(chosen)] { chosen(std::nullopt); });
        return;
    }
    panel_ = panel;
    chosen_ = std::move(chosen);
    show(standardised(panel.directory));
    emit isOpenChanged();
}

QString FolderChooser::location() const {
    return QString::fromStdString(pathText(folder_));
}

QString FolderChooser::note() const {
    if (looked_ == Looked::refused) return QStringLiteral("This folder can’t be read.");
    if (looked_ == Looked::read && rows_.folders().empty()) {
        return QStringLiteral("There are no folders in here.");
    }
    return {};
}

QString FolderChooser::chosen() const {
    const auto& rows = rows_.selection().rows();
    if (rows.size() > 1) return QStringLiteral("%1 folders").arg(rows.size());
    if (rows.size() == 1) {
        const auto row = static_cast<std::size_t>(*rows.begin());
        return QString::fromStdString(rows_.folders()[row].label);
    }
    return folder_ == "/" ? location() : QString::fromStdString(nameText(folder_.filename()));
}

QVariantMap FolderChooser::up() const {
    return asMap(screens::Button{.label = "Enclosing Folder", .enabled = folder_ != "/"});
}

QVariantMap FolderChooser::prompt() const {
    return asMap(screens::Button{.label = panel_.prompt,
                                 .enabled = looked_ != Looked::notYet,
                                 .kind = screens::ButtonKind::prominent,
                                 .key = "Return"});
}

QVariantMap FolderChooser::cancel() const {
    return asMap(screens::Button{.label = "Cancel", .key = "Escape"});
}

void FolderChooser::press(int row, Qt::KeyboardModifiers modifiers) {
    rows_.choose(row, howBy(modifiers));
}

void FolderChooser::step(int steps, Qt::KeyboardModifiers modifiers) {
    const bool extends = modifiers.testFlag(Qt::ShiftModifier);
    rows_.step(steps, extends ? RowSelection::How::extended : RowSelection::How::alone);
}

void FolderChooser::toggleCurrent() {
    rows_.choose(rows_.current(), RowSelection::How::toggled);
}

void FolderChooser::enter(int row) {
    if (row < 0 || row >= rows_.rowCount()) return;
    show(rows_.folders()[static_cast<std::size_t>(row)].path);
}

void FolderChooser::goUp() {
    if (folder_ != "/") show(folder_.parent_path(), folder_);
}

void FolderChooser::accept() {
    if (looked_ == Looked::notYet) return;
    std::vector<std::filesystem::path> folders;
    for (const int row : rows_.selection().rows()) {
        folders.push_back(rows_.folders()[static_cast<std::size_t>(row)].path);
    }
    if (folders.empty()) folders.push_back(folder_);
    answer(std::move(folders));
}

void FolderChooser::dismiss() {
    answer(std::nullopt);
}

void FolderChooser::show(std::filesystem::path folder, std::filesystem::path cameFrom) {
    folder_ = std::move(folder);
    looked_ = Looked::notYet;
    rows_.setFolders({});
    scope_.start(look(this, isAlive_, ++looks_, std::move(cameFrom)));
}

Task<void> FolderChooser::look(FolderChooser* self, std::shared_ptr<const bool> isAlive, int number,
                               std::filesystem::path cameFrom) {
    if (!*isAlive || number != self->looks_) co_return;
    const Platform platform = self->platform_;
    const std::filesystem::path folder = self->folder_;
    std::optional<std::vector<ListedFolder>> found = co_await background(
        [platform, folder](const StopToken&) { return foldersIn(platform, folder); });
    if (!*isAlive || number != self->looks_) co_return;
    self->looked_ = found ? Looked::read : Looked::refused;
    self->rows_.setFolders(std::move(found).value_or(std::vector<ListedFolder>{}));
    const std::vector<ListedFolder>& folders = self->rows_.folders();
    for (std::size_t row = 0; row < folders.size(); ++row) {
        if (folders[row].path != cameFrom) continue;
        self->rows_.choose(static_cast<int>(row), RowSelection::How::alone);
    }
}

void FolderChooser::answer(std::optional<std::vector<std::filesystem::path>> folders) {
    if (!chosen_) return;
    ++looks_;  // what is being looked at counts no more
    const Chosen chosen = std::exchange(chosen_, nullptr);
    emit isOpenChanged();
    chosen(std::move(folders));
}

}  // namespace morvane
