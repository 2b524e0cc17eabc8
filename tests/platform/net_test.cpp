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
    HttpServer server([&](const std::string& request) -> std::string {
        const std::string path = request.substr(4, request.find(' ', 4) - 4);
        static const std::map<std::string, std::string> replies = {
            {"/file", HttpServer::Ok(bytes)},
            {"/empty", HttpServer::Ok("", "text/html")},
            {"/bare", "HTTP/1.0 200 OK\r\n\r\n" + bytes},
            {"/there", lead + "/file\r\n\r\n"},
            {"/round", lead + "/round\r\n\r\n"},
            {"/away", lead + "http://localhost/file\r\n\r\n"},
            {"/disk", lead + "file:///etc/passwd\r\n\r\n"},
            {"/none", "HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\n1;a;"},
            {"/broken", "HTTP/1.1 500 Broken\r\n\r\n"},
            {"/part", sized + "20\r\n\r\n" + bytes},
            {"/cut", sized},
            {"/range", "HTTP/1.1 206 Partial\r\nContent-Length: 1\r\n\r\na"},
            {"/packed", "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: 1\r\n\r\na"},
            {"/no-content", "HTTP/1.1 204 No Content\r\n\r\n"},
            {"/long-gone", "HTTP/1.1 404 Not Found\r\nContent-Length: 5000\r\n\r\n"},
            {"/sign-in", HttpServer::Ok("<html>", "Text/HTML; charset=utf-8")},
            {"/huge", sized + "1001\r\n\r\n"},
            {"/endless", "HTTP/1.1 200 OK\r\n\r\n" + std::string(5000, 'x')},
            {"/garbage", "what?\r\n\r\n"},
        };
        const auto found = replies.find(path);
        return found == replies.end() ? "" : found->second;
    });
    Inet inet;
    inet.Limits = {
        .Connect = std::chrono::seconds(5), .Silence = std::chrono::milliseconds(300), .Bytes = 1000};
    int turns = 0;
    inet.Waiting = [&turns] { ++turns; };
    const std::string at = "http://" + server.Host();
    EXPECT_EQ(inet.OpenURL(at + "/file"), bytes);
    EXPECT_EQ(inet.OpenURL(at + "/bare"), bytes);
    EXPECT_EQ(inet.OpenURL(at + "/there"), bytes);
    EXPECT_EQ(inet.OpenURL(at + "/empty") + inet.OpenURL(at + "/no-content"), "");
    for (const auto& [address, number] :
         std::map<std::string, long>{{at + "/round", errors::Redirected},
                                     {at + "/away", errors::Redirected},
                                     {at + "/disk", errors::Redirected},
                                     {at + "/none", errors::NoSuccess},
                                     {at + "/broken", errors::NoSuccess},
                                     {at + "/long-gone", errors::NoSuccess},
                                     {at + "/range", errors::NoSuccess},
                                     {at + "/packed", errors::BadReply},
                                     {at + "/part", errors::ConnectionLost},
                                     {at + "/cut", errors::ConnectionLost},
                                     {at + "/sign-in", errors::WrongType},
                                     {at + "/huge", errors::TooLarge},
                                     {at + "/endless", errors::TooLarge},
                                     {at + "/garbage", errors::BadReply},
                                     {"https://" + server.Host() + "/file", errors::NotSecure},
                                     {"http://127.0.0.1:1/file", errors::NoConnection},
                                     {"http://no.such.host.invalid/file", errors::UnknownHost},
                                     {"", errors::UnknownHost},
                                     {"file:///etc/passwd", errors::UnknownHost}}) {
        EXPECT_EQ(test::ErrorOf([&, where = address] { inet.OpenURL(where); }), number) << address;
    }
    turns = 0;
    EXPECT_EQ(test::ErrorOf([&] { inet.OpenURL(at + "/silence"); }), errors::TimedOut);
    EXPECT_GE(turns, 3);  // painted meanwhile
}

}  // namespace
}  // namespace platform
