#pragma once

#include <openssl/ssl.h>

#include <memory>
#include <string>
#include <string_view>

#include "support/TestFolder.h"

namespace zelvo::testing {

/// The desk's own certificate, for "localhost" and signed by itself. One for the process.
class TdsCertificate {
public:
    static const TdsCertificate& instance();
    SSL_CTX* context() const { return context_.get(); }
    /// As a clinic gets it in a file.
    std::string file() const { return (folder_.path / "cert").string(); }

private:
    TdsCertificate();
    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context_{nullptr, &SSL_CTX_free};
    const TestFolder folder_;
};

/// One end of a line: bytes as they are, or under TLS once it has been agreed on.
class TdsPipe {
public:
    /// How a server goes.
    enum class End {
        Cut,      ///< the socket is closed, TLS says nothing of it
        InOrder,  ///< TLS is ended, then the socket
        Half,     ///< TLS is ended, nothing more is sent, but what comes is still taken
        Reset
    };

    explicit TdsPipe(int socket) : socket_(socket) {}

    /// False when the line has ended.
    bool read(char* bytes, std::size_t count);
    void write(std::string_view bytes, std::size_t pieces);
    /// The handshake, which travels in packets of their own.
    bool agreeOnTls();
    bool encrypted() const { return encrypted_; }
    void end(End how);

private:
    bool receive(char* bytes, std::size_t count) const;
    void sendRaw(std::string_view bytes) const;
    std::string pendingTls();

    int socket_;
    bool encrypted_ = false;
    std::unique_ptr<SSL, decltype(&SSL_free)> tls_{nullptr, &SSL_free};
};

}  // namespace zelvo::testing
