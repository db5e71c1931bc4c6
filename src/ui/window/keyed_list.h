#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <utility>
#include <vector>

namespace morvane {

// The entries of a screen's list, each known by its `id`, as rows that stay themselves: an entry
// that changes, comes or goes touches no other row, so each keeps its hover, its keyboard and its
// motion. Of a long list only a window of entries need have rows.
class KeyedList : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT

    // Maps with an `id`, in their order.
    Q_PROPERTY(QVariantList entries READ entries WRITE setEntries NOTIFY entriesChanged FINAL)
    Q_PROPERTY(int total READ total NOTIFY entriesChanged FINAL)
    // The entries that have rows: `most` of them from `first` on, all where `most` is negative.
    Q_PROPERTY(int first READ first WRITE setFirst NOTIFY windowChanged FINAL)
    Q_PROPERTY(int most READ most WRITE setMost NOTIFY windowChanged FINAL)
    // The entries that have rows wherever they stand, because the keyboard is on them or comes.
    Q_PROPERTY(QStringList kept READ kept WRITE setKept NOTIFY windowChanged FINAL)

public:
    enum Role { keyRole = Qt::UserRole, entryRole, placeRole };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] QVariantList entries() const { return entries_; }
    void setEntries(const QVariantList& entries);
    [[nodiscard]] int total() const { return static_cast<int>(entries_.size()); }
    [[nodiscard]] int first() const { return first_; }
    void setFirst(int first);
    [[nodiscard]] int most() const { return most_; }
    void setMost(int most);
    [[nodiscard]] QStringList kept() const { return kept_; }
    void setKept(const QStringList& keys);

    // The place of an entry among all, or -1; the `id` at a place, empty where there is none.
    Q_INVOKABLE [[nodiscard]] int placeOf(const QString& key) const;
    Q_INVOKABLE [[nodiscard]] QString keyAt(int place) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    // Before the rows of entries that are there no more go.
    void entriesAboutToChange();
    void entriesChanged();
    void windowChanged();

private:
    struct Row {
        QString key;
        QVariant entry;
        int place = 0;
    };

    [[nodiscard]] std::vector<Row> wanted() const;
    void showWindow();
    void removeWhatIsNotIn(const std::vector<Row>& rows);
    void insertFrom(const std::vector<Row>& rows, int begin, int end);
    void update(int index, const Row& row);

    QVariantList entries_;
    int first_ = 0;
    int most_ = -1;
    QStringList kept_;
    std::vector<Row> rows_;
};

}  // namespace morvane
