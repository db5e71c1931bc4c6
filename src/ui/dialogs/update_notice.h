#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QVariantMap>
#include <filesystem>
#include <functional>

#include "services/feed/update_prompt.h"

namespace morvane {

// Tells the user about new versions, one message at a time. Main thread.
class UpdateNotice : public QObject, public UpdatePrompt {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the program")

    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged FINAL)
    Q_PROPERTY(QString windowTitle READ windowTitle CONSTANT FINAL)
    Q_PROPERTY(QString title READ title NOTIFY messageChanged FINAL)
    Q_PROPERTY(QString text READ text NOTIFY messageChanged FINAL)
    // With line breaks; empty where nothing new is told of.
    Q_PROPERTY(QString notes READ notes NOTIFY messageChanged FINAL)
    // Whether a download runs, and how far it is, from 0 to 1.
    Q_PROPERTY(bool isDownloading READ isDownloading NOTIFY messageChanged FINAL)
    Q_PROPERTY(double fraction READ fraction NOTIFY messageChanged FINAL)
    // The button that goes on, null where there is none; the one that closes.
    Q_PROPERTY(QVariant action READ action NOTIFY messageChanged FINAL)
    Q_PROPERTY(QVariantMap close READ close NOTIFY messageChanged FINAL)

public:
    // What the user's presses come to.
    struct Presses {
        std::function<void()> download;
        std::function<void(const std::filesystem::path&)> reveal;  // a path of this machine
        std::function<void()> dismiss;
    };

    explicit UpdateNotice(QObject* parent = nullptr) : QObject(parent) {}

    // Until then presses only close.
    void setPresses(Presses presses) { presses_ = std::move(presses); }

    void show(const UpdateMessage& message) override;

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] QString windowTitle() const { return QStringLiteral("Software Update"); }
    [[nodiscard]] QString title() const { return QString::fromStdString(message_.title); }
    [[nodiscard]] QString text() const { return QString::fromStdString(message_.text); }
    [[nodiscard]] QString notes() const { return QString::fromStdString(message_.notes); }
    [[nodiscard]] bool isDownloading() const;
    [[nodiscard]] double fraction() const { return message_.fraction; }
    [[nodiscard]] QVariant action() const;
    [[nodiscard]] QVariantMap close() const;

    Q_INVOKABLE void act();
    Q_INVOKABLE void dismiss();

signals:
    void isOpenChanged();
    void messageChanged();
    // Another message than the further course of a download.
    void shown();

private:
    UpdateMessage message_;
    bool isOpen_ = false;
    Presses presses_;
};

}  // namespace morvane
