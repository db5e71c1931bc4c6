#pragma once

#include <QSslConfiguration>
#include <QSslServer>
#include <QSslSocket>
#include <QTcpServer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace morvane {

// A real server on this machine that speaks HTTP over TLS, with a certificate made for it alone.
class TlsServer {
public:
    // Gets the connection once a request has come whole.
    using Answer = std::function<void(QSslSocket& connection)>;

    TlsServer();

    // Who uses this trusts this server's certificate and no other.
    [[nodiscard]] QSslConfiguration trust() const;
    [[nodiscard]] std::string address(const std::string& path) const;

    // Paths without an answer are not found.
    std::map<std::string, Answer> answers;
    // The paths that were asked for, in order, and the last request's header.
    std::vector<std::string> asked;
    std::string header;
    int open = 0;  // connections that are not closed

private:
    void accept();
    void read(QSslSocket& connection);

    QSslCertificate certificate_;
    QSslServer server_;
};

// One that speaks plain HTTP, and only to say that there is nothing.
class PlainServer {
public:
    PlainServer();
    [[nodiscard]] std::string address() const;

    int connections = 0;

private:
    QTcpServer server_;
};

// The whole content, with its length.
[[nodiscard]] TlsServer::Answer content(const std::string& bytes);
// Content without a length that never ends.
[[nodiscard]] TlsServer::Answer endless();
// Sends this and closes the connection.
[[nodiscard]] TlsServer::Answer exactly(const std::string& bytes);
// Sends this and then nothing more.
[[nodiscard]] TlsServer::Answer unfinished(const std::string& bytes);
[[nodiscard]] TlsServer::Answer sentOnTo(const std::string& address);

}  // namespace morvane
