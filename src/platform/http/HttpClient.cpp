#include "platform/http/HttpClient.h"

#include <curl/curl.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "basics/Environment.h"
#include "basics/Fault.h"
#include "basics/Text.h"
#include "platform/http/Charset.h"
#include "platform/http/RequestThread.h"
#include "platform/http/WebAddress.h"

namespace zelvo::http {
namespace {

using basics::Fault;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

/// Hosts that no proxy is asked for: those of the environment and this machine itself.
std::string directHosts() {
    auto named = basics::environment("no_proxy");
    if (!named) named = basics::environment("NO_PROXY");
    std::string hosts = basics::trim(named.value_or(""));
    if (hosts == "*") return hosts;  // libcurl knows the star only when it stands alone
    return (hosts.empty() ? "" : hosts + ",") + "localhost,127.0.0.1,127.0.0.0/8,::1";
}

std::string seconds(milliseconds limit) {
    return std::to_string((limit.count() + 999) / 1000) + "초";
}

/// One page as it came.
struct Page {
    std::string bytes;
    std::size_t limit = 0;
    bool tooBig = false;

    static std::size_t take(char* data, std::size_t size, std::size_t count, void* target) {
        auto& page = *static_cast<Page*>(target);
        const std::size_t length = size * count;
        if (page.bytes.size() + length > page.limit) {
            page.tooBig = true;
            return 0;
        }
        try {
            page.bytes.append(data, length);
        } catch (const std::bad_alloc&) {
            return 0;
        }
        return length;
    }
};

/// One request with its redirects.
class Exchange {
public:
    Exchange(const HttpClient::Limits& limits, const std::string* body, std::stop_token stop)
        : limits_(limits), body_(body), stop_(std::move(stop)), deadline_(Clock::now() + limits.total) {
        static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
        if (ready == CURLE_OK) {
            handle_.reset(curl_easy_init());
            line_.reset(curl_multi_init());
        }
        if (!handle_ || !line_) throw Fault("웹페이지 통신을 준비하지 못했습니다.");
        prepare();
    }

    Download run(WebAddress address) {
        for (int redirects = 0;; ++redirects) {
            fetch(address);
            const auto next = redirectOf(address);
            if (!next) break;
            if (redirects == limits_.redirects) {
                throw Fault("웹페이지 주소가 " + std::to_string(limits_.redirects) +
                            "번 넘게 옮겨져 더 따라가지 않았습니다.");
            }
            address = *next;
        }
        if (status() != 200)
            throw Fault(server(address) + "가 오류 상태(" + std::to_string(status()) + ")로 응답했습니다.");
        const char* type = nullptr;
        curl_easy_getinfo(handle_.get(), CURLINFO_CONTENT_TYPE, &type);
        return {address.text(), type != nullptr ? type : "", std::move(page_.bytes)};
    }

    /// Of the last answer; 0 when there was none.
    long status() const {
        long code = 0;
        curl_easy_getinfo(handle_.get(), CURLINFO_RESPONSE_CODE, &code);
        return code;
    }

private:
    template <class Value>
    void set(CURLoption option, Value value) {
        if (curl_easy_setopt(handle_.get(), option, value) != CURLE_OK)
            throw Fault("웹페이지 통신을 준비하지 못했습니다.");
    }

    void prepare();
    void fetch(const WebAddress& address);
    CURLcode perform();
    std::optional<WebAddress> redirectOf(const WebAddress& from) const;
    [[noreturn]] void throwFailure(CURLcode code, const WebAddress& address) const;
    std::string timeoutText(const WebAddress& address) const;
    static std::string server(const WebAddress& address) { return "웹페이지 서버(" + address.host() + ")"; }

    const HttpClient::Limits& limits_;
    const std::string* body_;
    std::stop_token stop_;
    Clock::time_point deadline_;
    Page page_;
    std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headers_{nullptr, &curl_slist_free_all};
    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> handle_{nullptr, &curl_easy_cleanup};
    std::unique_ptr<CURLM, decltype(&curl_multi_cleanup)> line_{nullptr, &curl_multi_cleanup};
};

void Exchange::prepare() {
    // Redirects are followed by hand: each hop is looked at, and each keeps the method and the body.
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    set(CURLOPT_SSL_VERIFYPEER, 1L);
    set(CURLOPT_SSL_VERIFYHOST, 2L);
    // Windows alone would refuse a page whose authority has a list of what it took back that can't be
    // reached.
    set(CURLOPT_SSL_OPTIONS, static_cast<long>(CURLSSLOPT_REVOKE_BEST_EFFORT));
    if (!limits_.authorities.empty()) set(CURLOPT_CAINFO, limits_.authorities.c_str());
    const std::string direct = directHosts();
    set(CURLOPT_NOPROXY, direct.c_str());
    set(CURLOPT_NOSIGNAL, 1L);
#if LIBCURL_VERSION_NUM >= 0x075700
    set(CURLOPT_QUICK_EXIT, 1L);  // a name server that hangs must not outlast the limit
#endif
    set(CURLOPT_USERAGENT, "DoctorZELVO");
    set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(limits_.bytes));  // where the size is said first
    set(CURLOPT_WRITEFUNCTION, &Page::take);
    set(CURLOPT_WRITEDATA, static_cast<void*>(&page_));
    // An answer that comes compressed is read, though none is asked for; its limit counts what comes out.
    set(CURLOPT_ACCEPT_ENCODING, "");
    headers_.reset(curl_slist_append(nullptr, "Accept-Encoding:"));
    set(CURLOPT_HTTPHEADER, headers_.get());
    if (body_ == nullptr) return;
    curl_slist_append(headers_.get(), "Content-Type: application/x-www-form-urlencoded; charset=UTF-8");
    curl_slist_append(headers_.get(), "Expect:");  // old servers don't know how to say "go on"
    set(CURLOPT_POST, 1L);
    set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body_->size()));
    set(CURLOPT_POSTFIELDS, body_->c_str());
}

void Exchange::fetch(const WebAddress& address) {
    const auto left = std::chrono::duration_cast<milliseconds>(deadline_ - Clock::now());
    if (left <= milliseconds(0)) throw Fault(timeoutText(address));
    page_ = {.bytes = {}, .limit = limits_.bytes, .tooBig = false};
    set(CURLOPT_URL, address.text().c_str());
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(left.count()));
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(std::min(left, limits_.connect).count()));
    const CURLcode code = perform();
    if (stop_.stop_requested()) throw Fault("웹페이지 읽기를 그만두었습니다.");
    if (code != CURLE_OK) throwFailure(code, address);
}

/// Runs the transfer to its end, or until somebody asks for the end: that wakes it, whatever it waits for.
CURLcode Exchange::perform() {
    constexpr int longestPoll = 1000;
    CURLM* const line = line_.get();
    const std::stop_callback wake(stop_, [line] { curl_multi_wakeup(line); });
    if (curl_multi_add_handle(line, handle_.get()) != CURLM_OK) return CURLE_FAILED_INIT;
    CURLMcode state = CURLM_OK;
    for (int running = 1; state == CURLM_OK && !stop_.stop_requested();) {
        state = curl_multi_perform(line, &running);
        if (running == 0) break;
        if (state == CURLM_OK) state = curl_multi_poll(line, nullptr, 0, longestPoll, nullptr);
    }
    CURLcode code = CURLE_ABORTED_BY_CALLBACK;
    int left = 0;
    if (const CURLMsg* const ended = curl_multi_info_read(line, &left)) code = ended->data.result;
    curl_multi_remove_handle(line, handle_.get());
    return code;
}

/// Where the page has moved to, nothing if it hasn't.
std::optional<WebAddress> Exchange::redirectOf(const WebAddress& from) const {
    const long code = status();
    if (code != 301 && code != 302 && code != 303 && code != 307 && code != 308) return std::nullopt;
    const char* target = nullptr;
    curl_easy_getinfo(handle_.get(), CURLINFO_REDIRECT_URL, &target);
    if (target == nullptr) return std::nullopt;
    try {
        WebAddress next{target};
        if (!from.isSecure() || next.isSecure()) return next;
    } catch (const Fault&) {
        throw Fault(server(from) + "가 쓸 수 없는 주소로 옮기려 하여 따라가지 않았습니다.");
    }
    throw Fault(server(from) +
                "가 보안 연결(https)에서 보안이 없는 주소(http)로 옮기려 하여 따라가지 않았습니다.");
}

std::string Exchange::timeoutText(const WebAddress& address) const {
    curl_off_t connected = 0;
    curl_easy_getinfo(handle_.get(),
                      address.isSecure() ? CURLINFO_APPCONNECT_TIME_T : CURLINFO_CONNECT_TIME_T, &connected);
    if (connected == 0 && Clock::now() < deadline_) {
        return server(address) + "에 " + seconds(limits_.connect) + " 안에 연결되지 않았습니다.";
    }
    return server(address) + "가 " + seconds(limits_.total) + " 안에 응답하지 않았습니다.";
}

void Exchange::throwFailure(CURLcode code, const WebAddress& address) const {
    const std::string name = server(address);
    switch (code) {
        case CURLE_OPERATION_TIMEDOUT:
            throw Fault(timeoutText(address));
        case CURLE_COULDNT_RESOLVE_HOST:
            throw Fault(name + "의 주소를 찾지 못했습니다.");
        case CURLE_COULDNT_RESOLVE_PROXY:
        case CURLE_PROXY:
            throw Fault("인터넷 프록시 서버에 연결하지 못했습니다.");
        case CURLE_COULDNT_CONNECT:
            throw Fault(name + "에 연결하지 못했습니다.");
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_ISSUER_ERROR:
        case CURLE_SSL_INVALIDCERTSTATUS:
        case CURLE_SSL_CACERT_BADFILE:
            throw Fault(name + "의 보안 인증서를 확인할 수 없어 연결하지 않았습니다.");
        case CURLE_SSL_CONNECT_ERROR:
        case CURLE_SSL_CIPHER:
            throw Fault(name + "와 보안 연결을 맺지 못했습니다.");
        case CURLE_GOT_NOTHING:
        case CURLE_PARTIAL_FILE:
        case CURLE_SEND_ERROR:
        case CURLE_RECV_ERROR:
        case CURLE_HTTP2:
        case CURLE_HTTP2_STREAM:
            throw Fault(name + "와의 연결이 응답 도중에 끊어졌습니다.");
        case CURLE_FILESIZE_EXCEEDED:
        case CURLE_WRITE_ERROR:
            if (page_.tooBig || code == CURLE_FILESIZE_EXCEEDED)
                throw Fault(name + "의 응답이 너무 커서 받지 않았습니다.");
            [[fallthrough]];
        default:
            throw Fault(name + "의 응답을 읽지 못했습니다.");
    }
}

}  // namespace

std::string HttpClient::post(std::string_view address, const FormFields& fields,
                             const std::stop_token& stop) const {
    const std::string body = formBody(fields);
    const Download answer = exchange(address, &body, stop);
    return decodePage(answer.bytes, answer.contentType);
}

std::string HttpClient::get(std::string_view address, const std::stop_token& stop) const {
    const Download page = download(address, stop);
    return decodePage(page.bytes, page.contentType);
}

Download HttpClient::download(std::string_view address, const std::stop_token& stop) const {
    return exchange(address, nullptr, stop);
}

Download HttpClient::exchange(std::string_view address, const std::string* body,
                              const std::stop_token& stop) const {
    const WebAddress page(address);
    const RequestThread thread;
    const Clock::time_point start = Clock::now();
    Exchange request(limits_, body, stop);
    try {
        return request.run(page);
    } catch (const Fault& fault) {
        const auto took = std::chrono::duration_cast<milliseconds>(Clock::now() - start).count();
        // What was asked for stays out of it: an address may hold what the doctor typed.
        if (support_ && !stop.stop_requested()) {
            support_->add("web " + page.host() + " status " + std::to_string(request.status()) + ", " +
                          std::to_string(took) + " ms: " + fault.what());
        }
        throw;
    }
}

}  // namespace zelvo::http
