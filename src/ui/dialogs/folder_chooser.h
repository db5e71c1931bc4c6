#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QVariantMap>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/platform.h"
#include "tasks/scope.h"
#include "ui/dialogs/folder_rows.h"

namespace morvane {

// Lets the user choose folders of the disk, several at once. With no row chosen, what would be
// chosen is the folder on view. It looks at the disk on the pool alone. Main thread.
class FolderChooser final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the program")

    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged FINAL)
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString message READ message NOTIFY isOpenChanged FINAL)
    // The folder on view, as a path.
    Q_PROPERTY(QString location READ location NOTIFY told FINAL)
    Q_PROPERTY(morvane::FolderRows* rows READ rows CONSTANT FINAL)
    // Why there are no rows; empty while there are.
    Q_PROPERTY(QString note READ note NOTIFY told FINAL)
    // What the prompt would take.
    Q_PROPERTY(QString chosen READ chosen NOTIFY told FINAL)
    // Buttons, in the shape that those of the screens have.
    Q_PROPERTY(QVariantMap up READ up NOTIFY told FINAL)
    Q_PROPERTY(QVariantMap prompt READ prompt NOTIFY told FINAL)
    Q_PROPERTY(QVariantMap cancel READ cancel CONSTANT FINAL)

public:
    using Chosen = std::function<void(std::optional<std::vector<std::filesystem::path>>)>;

    // `scope` outlives this.
    FolderChooser(Platform platform, Scope& scope, QObject* parent = nullptr);
    // Who waits is told that nothing was chosen.
    ~FolderChooser() override;

    // Opens in the panel's directory; `chosen` comes at a later turn. While it is open another
    // panel counts as dismissed.
    void choose(const Workspace::FolderPanel& panel, Chosen chosen);

    [[nodiscard]] bool isOpen() const { return chosen_ != nullptr; }
    [[nodiscard]] QString title() const { return QStringLiteral("Choose Folders"); }
    [[nodiscard]] QString message() const { return QString::fromStdString(panel_.message); }
    [[nodiscard]] QString location() const;
    [[nodiscard]] FolderRows* rows() { return &rows_; }
    [[nodiscard]] QString note() const;
    [[nodiscard]] QString chosen() const;
    [[nodiscard]] QVariantMap up() const;
    [[nodiscard]] QVariantMap prompt() const;
    [[nodiscard]] QVariantMap cancel() const;

    // A click on a row, or a key that leads to one, with the keys held meanwhile.
    Q_INVOKABLE void press(int row, Qt::KeyboardModifiers modifiers);
    Q_INVOKABLE void step(int steps, Qt::KeyboardModifiers modifiers);
    Q_INVOKABLE void toggleCurrent();
    Q_INVOKABLE void chooseAll() { rows_.chooseAll(); }
    // Shows the folder of a row; the one that this one lies in.
    Q_INVOKABLE void enter(int row);
    Q_INVOKABLE void goUp();
    Q_INVOKABLE void accept();
    Q_INVOKABLE void dismiss();

signals:
    void isOpenChanged();
    // Something of what is told reads otherwise.
    void told();

private:
    enum class Looked { notYet, read, refused };

    void show(std::filesystem::path folder, std::filesystem::path cameFrom = {});
    static Task<void> look(FolderChooser* self, std::shared_ptr<const bool> isAlive, int number,
                           std::filesystem::path cameFrom);
    void answer(std::optional<std::vector<std::filesystem::path>> folders);

    Platform platform_;
    Scope& scope_;
    FolderRows rows_;
    Workspace::FolderPanel panel_;
    Chosen chosen_;
    std::filesystem::path folder_ = "/";
    Looked looked_ = Looked::notYet;
    int looks_ = 0;
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

}  // namespace morvane
