// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <utility>

namespace test {

/// A server on loopback that sends whatever the test says, byte by byte as given, and closes the connection.
class HttpServer {
  public:
    /// What is sent upon a request's first line; a reply that is empty is never sent.
    explicit HttpServer(std::function<std::string(const std::string& request)> reply)
        : reply_(std::move(reply)), listening_(::socket(AF_INET, SOCK_STREAM, 0)) {
        ::setenv("no_proxy", "*", 1);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const any = reinterpret_cast<sockaddr*>(&address);
        ::bind(listening_, any, size);
        ::listen(listening_, 8);
        ::getsockname(listening_, any, &size);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { Serve(); });
    }
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;
    ~HttpServer() {
        ::shutdown(listening_, SHUT_RDWR);  // and accept fails
        thread_.join();
        ::close(listening_);
    }

    std::string Host() const { return "127.0.0.1:" + std::to_string(port_); }

    /// A whole reply with a body.
    static std::string Ok(const std::string& body, const std::string& type = "text/plain") {
        return "HTTP/1.1 200 OK\r\nContent-Type: " + type +
               "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
    }

  private:
    static constexpr char kTls = 22;  // the first byte of who wants to speak it

    void Serve() {
        for (int socket = 0; (socket = ::accept(listening_, nullptr, nullptr)) >= 0; ::close(socket)) {
            std::string request;
            char c = 0;
            while (!request.ends_with("\r\n\r\n") && c != kTls && ::recv(socket, &c, 1, 0) == 1) {
                request += c;
            }
            const std::string all = c == kTls ? "no" : reply_(request.substr(0, request.find('\r')));
            ::send(socket, all.data(), all.size(), MSG_NOSIGNAL);
            while (all.empty() && ::recv(socket, &c, 1, 0) == 1) {
            }  // until the other side has waited long enough
        }
    }

    std::function<std::string(const std::string&)> reply_;
    int listening_;
    int port_ = 0;
    std::thread thread_;
};

}  // namespace test
