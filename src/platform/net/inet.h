// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace platform {

/// Fetches files over HTTP, one at a time. What it brings is bytes; whoever reads them checks them.
///
/// The proxies that the user has set in the environment (http_proxy, https_proxy, all_proxy, no_proxy) hold.
class Inet {
  public:
    /// Called about twenty times a second while OpenURL waits.
    std::function<void()> Waiting = [] {};

    struct Limits {
        std::chrono::milliseconds Connect{15'000};
        std::chrono::milliseconds Silence{30'000};  // without a byte
        std::size_t Bytes = std::size_t{64} << 20U;
        int Redirects = 5;  // on the same host, and never from https to http
    } Limits;

    /// The bytes that the server replies to a GET; returns when they are there. An https server must prove
    /// who it is. A reply without a byte is an empty one whatever type it says.
    /// Errors: 12002 a limit of time, 12007 no host of this name, 12029 nobody answers there, 12030 the
    /// connection broke before the end, 12150 the reply is no success, 12151 it is a web page, as a network's
    /// sign-in page is, 12152 it is no HTTP, 12153 it is too large, 12156 it leads elsewhere, 12157 the
    /// server's certificate doesn't hold.
    std::string OpenURL(const std::string& address);

    /// Ends what is still under way: nothing is, once OpenURL has returned or failed.
    void Cancel() {}
};

}  // namespace platform
