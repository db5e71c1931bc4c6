#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <vector>

#include "ui/dialogs/folder_listing.h"
#include "ui/dialogs/row_selection.h"

namespace morvane {

// The folders of the chooser as rows: `label`, and whether a row is chosen.
class FolderRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the chooser")

    // The row that the keyboard is on, or -1.
    Q_PROPERTY(int current READ current NOTIFY selectionChanged FINAL)

public:
    enum Role { labelRole = Qt::UserRole, chosenRole };

    using QAbstractListModel::QAbstractListModel;

    void setFolders(std::vector<ListedFolder> folders);
    [[nodiscard]] const std::vector<ListedFolder>& folders() const { return folders_; }
    [[nodiscard]] const RowSelection& selection() const { return selection_; }
    [[nodiscard]] int current() const { return selection_.current(); }

    void choose(int row, RowSelection::How how);
    void step(int steps, RowSelection::How how);
    void chooseAll();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void selectionChanged();

private:
    void tellFrom(const RowSelection& former);

    std::vector<ListedFolder> folders_;
    RowSelection selection_;
};

}  // namespace morvane
