// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/net/inet.h"
#include "platform/test_database.h"
#include "support/http_server.h"

namespace platform {
namespace {

using test::HttpServer;

TEST(Inet, GivesTheBytesOrSaysWhyNot) {
    const std::string bytes("a;\xE5\0\r\n\x81", 7);
    const std::string sized = "HTTP/1.1 200 OK\r\nContent-Length: ";
    const std::string lead = "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: ";
    const std::map<std::string, std::pair<std::string, long>> replies = {
        {"/file", {HttpServer::Ok(bytes), 0}},
        {"/empty", {HttpServer::Ok("", "text/html"), 0}},
        {"/bare", {"HTTP/1.0 200 OK\r\n\r\n" + bytes, 0}},
        {"/there", {lead + "/file\r\n\r\n", 0}},
        {"/no-content", {"HTTP/1.1 204 No Content\r\n\r\n", 0}},
        {"/round", {lead + "/round\r\n\r\n", errors::Redirected}},
        {"/away", {lead + "http://localhost/file\r\n\r\n", errors::Redirected}},
        {"/disk", {lead + "file:///etc/passwd\r\n\r\n", errors::Redirected}},
        {"/none", {"HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\n1;a;", errors::NoSuccess}},
        {"/broken", {"HTTP/1.1 500 Broken\r\n\r\n", errors::NoSuccess}},
        {"/long-gone", {"HTTP/1.1 404 Not Found\r\nContent-Length: 5000\r\n\r\n", errors::NoSuccess}},
        {"/range", {"HTTP/1.1 206 Partial\r\nContent-Length: 1\r\n\r\na", errors::NoSuccess}},
        {"/packed", {sized + "1\r\nContent-Encoding: gzip\r\n\r\na", errors::BadReply}},
        {"/garbage", {"what?\r\n\r\n", errors::BadReply}},
        {"/part", {sized + "20\r\n\r\n" + bytes, errors::ConnectionLost}},
        {"/cut", {sized, errors::ConnectionLost}},
        {"/sign-in", {HttpServer::Ok("<html>", "Text/HTML; charset=utf-8"), errors::WrongType}},
        {"/huge", {sized + "1001\r\n\r\n", errors::TooLarge}},
        {"/endless", {"HTTP/1.1 200 OK\r\n\r\n" + std::string(5000, 'x'), errors::TooLarge}},
        {"/silence", {"", errors::TimedOut}}};
    HttpServer server([&](const std::string& request) {
        return replies.at(request.substr(4, request.find(' ', 4) - 4)).first;
    });
    Inet inet;
    inet.Limits = {
        .Connect = std::chrono::seconds(5), .Silence = std::chrono::milliseconds(300), .Bytes = 1000};
    int turns = 0;
    inet.Waiting = [&turns] { ++turns; };
    std::map<std::string, long> expected = {{"https://" + server.Host() + "/file", errors::NotSecure},
                                            {"http://127.0.0.1:1/file", errors::NoConnection},
                                            {"http://no.such.host.invalid/file", errors::UnknownHost},
                                            {"", errors::UnknownHost},
                                            {"file:///etc/passwd", errors::UnknownHost}};
    const std::string at = "http://" + server.Host();
    for (const auto& [path, reply] : replies) {
        expected[at + path] = reply.second;
    }
    for (const auto& [address, number] : expected) {
        turns = 0;
        std::string got;
        EXPECT_EQ(test::ErrorOf([&, where = address] { got = inet.OpenURL(where); }), number) << address;
        const bool empty = number != 0 || address.ends_with("/empty") || address.ends_with("/no-content");
        EXPECT_EQ(got, empty ? "" : bytes) << address;
        EXPECT_TRUE(turns >= 3 || number != errors::TimedOut);  // painted meanwhile
    }
}

}  // namespace
}  // namespace platform
