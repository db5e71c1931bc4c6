#include "feed/tls_server.h"

#include <QFile>
#include <QSslKey>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdlib>
#include <gtest/gtest.h>

namespace morvane {

namespace {

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

}  // namespace

TlsServer::TlsServer() {
    const QTemporaryDir folder;
    const QString key = folder.filePath("key.pem");
    const QString certificate = folder.filePath("certificate.pem");
    const std::string command =
        "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 "
        "-subj /CN=localhost -addext subjectAltName=IP:127.0.0.1 -keyout '" +
        key.toStdString() + "' -out '" + certificate.toStdString() + "' 2>/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
    certificate_ = QSslCertificate(bytesOf(certificate));
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(certificate_);
    configuration.setPrivateKey(QSslKey(bytesOf(key), QSsl::Ec));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    server_.setSslConfiguration(configuration);
    QObject::connect(&server_, &QTcpServer::pendingConnectionAvailable, &server_,
                     [this] { accept(); });
    EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
}

QSslConfiguration TlsServer::trust() const {
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates({certificate_});
    return configuration;
}

std::string TlsServer::address(const std::string& path) const {
    return "https://127.0.0.1:" + std::to_string(server_.serverPort()) + path;
}

void TlsServer::accept() {
    while (auto* connection = qobject_cast<QSslSocket*>(server_.nextPendingConnection())) {
        ++open;
        QObject::connect(connection, &QSslSocket::disconnected, &server_, [this] { --open; });
        QObject::connect(connection, &QSslSocket::readyRead, connection,
                         [this, connection] { read(*connection); });
        if (connection->bytesAvailable() > 0) read(*connection);
    }
}

void TlsServer::read(QSslSocket& connection) {
    const QByteArray received = connection.peek(64 << 10);
    if (!received.contains("\r\n\r\n")) return;
    header = connection.readAll().toStdString();
    const std::size_t start = header.find(' ') + 1;
    asked.push_back(header.substr(start, header.find(' ', start) - start));
    const auto answer = answers.find(asked.back());
    if (answer == answers.end()) {
        connection.write("HTTP/1.1 404 Not Found\r\nContent-Length: 2\r\n\r\nno");
    } else {
        answer->second(connection);
    }
}

PlainServer::PlainServer() {
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
        ++connections;
        QTcpSocket* const connection = server_.nextPendingConnection();
        connection->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
        connection->disconnectFromHost();
    });
    EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
}

std::string PlainServer::address() const {
    return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + "/";
}

TlsServer::Answer exactly(const std::string& bytes) {
    return [bytes](QSslSocket& connection) {
        connection.write(bytes.data(), static_cast<qint64>(bytes.size()));
        connection.disconnectFromHost();
    };
}

TlsServer::Answer unfinished(const std::string& bytes) {
    return [bytes](QSslSocket& connection) {
        connection.write(bytes.data(), static_cast<qint64>(bytes.size()));
    };
}

TlsServer::Answer content(const std::string& bytes) {
    return unfinished("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(bytes.size()) +
                      "\r\n\r\n" + bytes);
}

TlsServer::Answer sentOnTo(const std::string& address) {
    return unfinished("HTTP/1.1 302 Found\r\nLocation: " + address +
                      "\r\nContent-Length: 0\r\n\r\n");
}

TlsServer::Answer endless() {
    return [](QSslSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\n\r\n");
        // In pieces with pauses, as from far away: this server's thread is its client's too.
        auto* const pace = new QTimer(&connection);
        QObject::connect(pace, &QTimer::timeout, &connection, [&connection] {
            if (connection.encryptedBytesToWrite() == 0)
                connection.write(QByteArray(64 << 10, ' '));
        });
        QObject::connect(&connection, &QSslSocket::disconnected, pace, &QTimer::stop);
        pace->start(1);
    };
}

}  // namespace morvane
