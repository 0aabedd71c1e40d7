#include "support/tds/TdsPipe.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "support/Certificate.h"

namespace zelvo::testing {

TdsCertificate::TdsCertificate() {
    context_.reset(SSL_CTX_new(TLS_server_method()));
    SSL_CTX_set_max_proto_version(context_.get(), TLS1_2_VERSION);
    const bool usable =
        makeCertificate(folder_.path) &&
        SSL_CTX_use_certificate_file(context_.get(), file().c_str(), SSL_FILETYPE_PEM) == 1 &&
        SSL_CTX_use_PrivateKey_file(context_.get(), (folder_.path / "key").c_str(), SSL_FILETYPE_PEM) == 1;
    if (!usable) throw std::runtime_error("no certificate");
}

const TdsCertificate& TdsCertificate::instance() {
    static const TdsCertificate certificate;
    return certificate;
}

bool TdsPipe::receive(char* bytes, std::size_t count) const {
    return count == 0 || ::recv(socket_, bytes, count, MSG_WAITALL) == static_cast<ssize_t>(count);
}

void TdsPipe::sendRaw(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

std::string TdsPipe::pendingTls() {
    std::string bytes(static_cast<std::size_t>(BIO_ctrl_pending(SSL_get_wbio(tls_.get()))), '\0');
    BIO_read(SSL_get_wbio(tls_.get()), bytes.data(), static_cast<int>(bytes.size()));
    return bytes;
}

bool TdsPipe::agreeOnTls() {
    constexpr char preloginPacket = 18;
    tls_.reset(SSL_new(TdsCertificate::instance().context()));
    SSL_set_bio(tls_.get(), BIO_new(BIO_s_mem()), BIO_new(BIO_s_mem()));
    for (bool done = false; !done;) {
        std::array<char, 8> head{};
        if (!receive(head.data(), head.size())) return false;
        std::string body(static_cast<unsigned char>(head[2]) * 256U + static_cast<unsigned char>(head[3]) - 8,
                         '\0');
        if (!receive(body.data(), body.size())) return false;
        BIO_write(SSL_get_rbio(tls_.get()), body.data(), static_cast<int>(body.size()));
        const int agreed = SSL_accept(tls_.get());
        done = agreed == 1;
        const std::string answer = pendingTls();
        const std::size_t size = answer.size() + 8;
        if (!answer.empty()) {
            sendRaw(std::string{preloginPacket, 1, static_cast<char>(size >> 8), static_cast<char>(size), 0,
                                0, 1, 0} +
                    answer);
        }
        if (!done && SSL_get_error(tls_.get(), agreed) != SSL_ERROR_WANT_READ) return false;
    }
    return encrypted_ = true;
}

bool TdsPipe::read(char* bytes, std::size_t count) {
    if (!encrypted_) return receive(bytes, count);
    while (count > 0) {
        const int got = SSL_read(tls_.get(), bytes, static_cast<int>(count));
        if (got > 0) {
            bytes += got;
            count -= static_cast<std::size_t>(got);
            continue;
        }
        if (SSL_get_error(tls_.get(), got) != SSL_ERROR_WANT_READ) return false;
        std::array<char, 8192> raw{};
        const ssize_t came = ::recv(socket_, raw.data(), raw.size(), 0);
        if (came <= 0) return false;
        BIO_write(SSL_get_rbio(tls_.get()), raw.data(), static_cast<int>(came));
    }
    return true;
}

void TdsPipe::write(std::string_view bytes, std::size_t pieces) {
    std::string sealed;
    if (encrypted_) {
        SSL_write(tls_.get(), bytes.data(), static_cast<int>(bytes.size()));
        sealed = pendingTls();
        bytes = sealed;
    }
    for (std::size_t at = 0; at < bytes.size(); at += pieces) sendRaw(bytes.substr(at, pieces));
}

void TdsPipe::end(End how) {
    if (how == End::Reset) {
        const sockaddr nobody{.sa_family = AF_UNSPEC, .sa_data = {}};
        ::connect(socket_, &nobody, sizeof nobody);
        return;
    }
    if (encrypted_ && how != End::Cut) {
        SSL_shutdown(tls_.get());
        sendRaw(pendingTls());
    }
    ::shutdown(socket_, how == End::Half ? SHUT_WR : SHUT_RDWR);
}

}  // namespace zelvo::testing
