#include "ui/dialogs/folder_rows.h"

#include <iterator>
#include <utility>

namespace morvane {

void FolderRows::setFolders(std::vector<ListedFolder> folders) {
    // Another folder is another list: no row of the former one stays.
    beginResetModel();
    folders_ = std::move(folders);
    selection_.reset(static_cast<int>(std::ssize(folders_)));
    endResetModel();
    emit selectionChanged();
}

void FolderRows::choose(int row, RowSelection::How how) {
    const RowSelection former = selection_;
    selection_.choose(row, how);
    tellFrom(former);
}

void FolderRows::step(int steps, RowSelection::How how) {
    const RowSelection former = selection_;
    selection_.step(steps, how);
    tellFrom(former);
}

void FolderRows::chooseAll() {
    const RowSelection former = selection_;
    selection_.all();
    tellFrom(former);
}

void FolderRows::tellFrom(const RowSelection& former) {
    for (int row = 0; row < rowCount(); ++row) {
        if (former.contains(row) == selection_.contains(row)) continue;
        emit dataChanged(index(row), index(row), {chosenRole});
    }
    emit selectionChanged();
}

int FolderRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(std::ssize(folders_));
}

QVariant FolderRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    if (role == chosenRole) return selection_.contains(index.row());
    if (role != labelRole) return {};
    return QString::fromStdString(folders_[static_cast<std::size_t>(index.row())].label);
}

QHash<int, QByteArray> FolderRows::roleNames() const {
    return {{labelRole, "label"}, {chosenRole, "chosen"}};
}

}  // namespace morvane
