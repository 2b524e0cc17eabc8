// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/net/inet.h"

#include <curl/curl.h>

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/error.h"
#include "platform/text/text.h"

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::duration<int, std::milli> kWait{50};

// The replies that are a success: the whole file, or that it is empty.
constexpr long kWhole = 200;
constexpr long kEmpty = 204;

// The library's handles are all void, so that each has a deleter by name.
template <auto Close>
struct By {
    template <class T>
    void operator()(T* handle) const {
        Close(handle);
    }
};
using Easy = std::unique_ptr<CURL, By<curl_easy_cleanup>>;
using Multi = std::unique_ptr<CURLM, By<curl_multi_cleanup>>;
using Address = std::unique_ptr<CURLU, By<curl_url_cleanup>>;
using Text = std::unique_ptr<char, By<curl_free>>;

[[noreturn]] void Fail(long number, const std::string& address, const std::string& reason) {
    throw Error(number, "Fetching \"" + address + "\" failed: " + reason + ".", "net");
}

std::string PartOf(const Address& address, CURLUPart part) {
    char* text = nullptr;
    if (curl_url_get(address.get(), part, &text, 0) != CURLUE_OK) {
        return {};
    }
    return Text(text).get();
}

Address Parse(const std::string& text) {
    Address address(curl_url());
    if (address == nullptr ||
        curl_url_set(address.get(), CURLUPART_URL, text.c_str(), CURLU_NON_SUPPORT_SCHEME) != CURLUE_OK) {
        address.reset();
    }
    return address;
}

/// Whether a server may send us from one address to the other.
bool MayLeadTo(const std::string& from, const std::string& to) {
    const Address here = Parse(from);
    const Address there = Parse(to);
    if (here == nullptr || there == nullptr) {
        return false;
    }
    const std::string before = PartOf(here, CURLUPART_SCHEME);
    const std::string after = PartOf(there, CURLUPART_SCHEME);
    return EqualIgnoringCase(PartOf(here, CURLUPART_HOST), PartOf(there, CURLUPART_HOST)) &&
           (after == "https" || (after == "http" && before == "http"));
}

/// One request and what has come of it.
struct Request {
    const std::string& Url;
    std::size_t Most;
    std::string Received = {};
    Clock::time_point LastByte = Clock::now();
    bool TooMuch = false;
    bool HeadersEnded = false;

    static std::size_t Body(char* data, std::size_t, std::size_t bytes, void* self) noexcept {
        auto& request = *static_cast<Request*>(self);
        request.LastByte = Clock::now();
        if (bytes > request.Most - request.Received.size()) {
            request.TooMuch = true;
            return 0;
        }
        try {
            request.Received.append(data, bytes);
        } catch (...) {
            request.TooMuch = true;  // for this machine
            return 0;
        }
        return bytes;
    }
    static std::size_t Header(char* data, std::size_t, std::size_t bytes, void* self) noexcept {
        auto& request = *static_cast<Request*>(self);
        request.LastByte = Clock::now();
        request.HeadersEnded =
            std::string_view(data, bytes).find_first_not_of("\r\n") == std::string_view::npos;
        return bytes;
    }
};

[[noreturn]] void FailBy(CURLcode code, const Request& request) {
    switch (code) {
        case CURLE_WRITE_ERROR:
            if (!request.TooMuch) {
                break;
            }
            [[fallthrough]];
        case CURLE_FILESIZE_EXCEEDED:
            Fail(errors::TooLarge, request.Url, "the file is too large");
        case CURLE_OPERATION_TIMEDOUT:
            Fail(errors::TimedOut, request.Url, "the server can't be reached in time");
        case CURLE_COULDNT_RESOLVE_PROXY:
            Fail(errors::UnknownHost, request.Url, "there is no such proxy");
        case CURLE_COULDNT_RESOLVE_HOST:
        case CURLE_URL_MALFORMAT:
            Fail(errors::UnknownHost, request.Url, "there is no such server");
        case CURLE_COULDNT_CONNECT:
            Fail(errors::NoConnection, request.Url, "the server doesn't answer");
        case CURLE_PARTIAL_FILE:
        case CURLE_RECV_ERROR:
        case CURLE_SEND_ERROR:
        case CURLE_GOT_NOTHING:
        case CURLE_HTTP2:
        case CURLE_HTTP2_STREAM:
            Fail(errors::ConnectionLost, request.Url, "the connection broke before the end");
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_CONNECT_ERROR:
        case CURLE_SSL_CACERT_BADFILE:
            Fail(errors::NotSecure, request.Url, "the server can't prove that it is the one asked for");
        default:
            break;
    }
    Fail(errors::BadReply, request.Url, curl_easy_strerror(code));
}

/// Whether the bytes are those of a web page, whatever type the server gives them.
bool BeginsAsPage(std::string_view bytes) {
    const auto begin = bytes.find_first_of('<');
    if (begin == std::string_view::npos ||
        bytes.substr(0, begin).find_first_not_of("\xEF\xBB\xBF \t\r\n") != std::string_view::npos) {
        return false;
    }
    const std::string first = LCase(bytes.substr(begin, 14));
    return first.starts_with("<!doctype html") || first.starts_with("<html");
}

/// Runs a request to its end, with turns for whoever waits.
CURLcode Run(CURL* easy, Request& request, const Inet& inet) {
    auto turn = Clock::now();
    const Multi multi(curl_multi_init());
    if (multi == nullptr || curl_multi_add_handle(multi.get(), easy) != CURLM_OK) {
        return CURLE_OUT_OF_MEMORY;
    }
    struct Leave {
        CURLM* From;
        CURL* Who;
        ~Leave() { curl_multi_remove_handle(From, Who); }
    } const leave{multi.get(), easy};
    for (;;) {
        int running = 0;
        if (curl_multi_perform(multi.get(), &running) != CURLM_OK) {
            return CURLE_FAILED_INIT;
        }
        if (running == 0) {
            int left = 0;
            const CURLMsg* const message = curl_multi_info_read(multi.get(), &left);
            return message == nullptr ? CURLE_FAILED_INIT : message->data.result;
        }
        if (Clock::now() - request.LastByte > inet.Limits.Silence) {
            Fail(errors::TimedOut, request.Url, "the server has fallen silent");
        }
        curl_multi_poll(multi.get(), nullptr, 0, kWait.count(), nullptr);
        if (Clock::now() - turn >= kWait) {
            inet.Waiting();
            turn = Clock::now();
        }
    }
}

}  // namespace

std::string Inet::OpenURL(const std::string& address) {
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    std::string url = address;
    for (int redirects = 0;; ++redirects) {
        const Address parsed = Parse(url);
        const std::string scheme = parsed == nullptr ? std::string() : PartOf(parsed, CURLUPART_SCHEME);
        if ((scheme != "http" && scheme != "https") || PartOf(parsed, CURLUPART_HOST).empty()) {
            Fail(errors::UnknownHost, url, "no server is named there");
        }
        const Easy easy(curl_easy_init());
        if (ready != CURLE_OK || easy == nullptr) {
            Fail(errors::NoConnection, url, "the network can't be used");
        }
        Request request{.Url = url, .Most = Limits.Bytes};
        const auto set = [&easy](CURLoption option, auto value) {
            curl_easy_setopt(easy.get(), option, value);
        };
        set(CURLOPT_URL, url.c_str());
        set(CURLOPT_PROTOCOLS_STR, "http,https");
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_QUICK_EXIT, 1L);  // nobody waits for a name that is still looked up
        set(CURLOPT_USERAGENT, "Vemora");
        set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(Limits.Connect.count()));
        set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(Limits.Bytes));
        set(CURLOPT_WRITEFUNCTION, &Request::Body);
        set(CURLOPT_WRITEDATA, static_cast<void*>(&request));
        set(CURLOPT_HEADERFUNCTION, &Request::Header);
        set(CURLOPT_HEADERDATA, static_cast<void*>(&request));

        const CURLcode code = Run(easy.get(), request, *this);
        long status = 0;
        curl_easy_getinfo(easy.get(), CURLINFO_HTTP_CONNECTCODE, &status);
        if (code != CURLE_OK && status > 299) {
            Fail(errors::NoSuccess, url, "the proxy replies with number " + std::to_string(status));
        }
        curl_easy_getinfo(easy.get(), CURLINFO_RESPONSE_CODE, &status);
        if (code != CURLE_OK && (code != CURLE_FILESIZE_EXCEEDED || status == kWhole)) {
            FailBy(code, request);
        }
        if (!request.HeadersEnded && code == CURLE_OK) {
            FailBy(CURLE_PARTIAL_FILE, request);
        }
        const char* target = nullptr;
        curl_easy_getinfo(easy.get(), CURLINFO_REDIRECT_URL, &target);
        if (target != nullptr) {
            const std::string next = target;
            if (redirects == Limits.Redirects || !MayLeadTo(url, next)) {
                Fail(errors::Redirected, url, "the server leads on to \"" + Left(next, 200) + "\"");
            }
            url = next;
            continue;
        }
        if (status != kWhole && status != kEmpty) {
            Fail(errors::NoSuccess, url, "the server replies with number " + std::to_string(status));
        }
        curl_header* packed = nullptr;
        if (curl_easy_header(easy.get(), "Content-Encoding", 0, CURLH_HEADER, -1, &packed) == CURLHE_OK &&
            !EqualIgnoringCase(packed->value, "identity")) {
            Fail(errors::BadReply, url, "the reply is packed, which nobody has asked for");
        }
        const char* type = nullptr;
        curl_easy_getinfo(easy.get(), CURLINFO_CONTENT_TYPE, &type);
        if ((type != nullptr && !request.Received.empty() &&
             LCase(Trim(std::string_view(type))).starts_with("text/html")) ||
            BeginsAsPage(request.Received)) {
            Fail(errors::WrongType, url,
                 "the reply is a web page and not the file, as where a network asks to sign in first");
        }
        return std::move(request.Received);
    }
}

}  // namespace platform
