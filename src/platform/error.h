// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>
#include <string>
#include <utility>

namespace platform {

/// The one failure of the outside world: thrown by the operation that failed, caught by the procedure
/// that guards itself or, at the latest, where the event came in.
///
/// Number is the one that the system's users know; Description is one plain sentence with what was being
/// done; Source names the part of the platform that failed.
struct Error : std::exception {
    long Number;
    std::string Description;
    std::string Source;

    Error(long number, std::string description, std::string source = {})
        : Number(number), Description(std::move(description)), Source(std::move(source)) {}

    const char* what() const noexcept override { return Description.c_str(); }
};

/// The numbers of Error.
namespace errors {
inline constexpr long BadStatement = -2147217900;  // cannot be parsed, empty, or a second statement behind it
inline constexpr long NoSuchTable = -2147217865;
inline constexpr long NoSuchColumn = -2147217904;
inline constexpr long BadPassword = -2147217843;  // not the password of the file, or not a database
inline constexpr long StoreFailed = -2147467259;  // file missing, in use, not writable; a duplicate key
inline constexpr long NoCurrentRecord = 3021;
inline constexpr long NoSuchField = 3265;
inline constexpr long BadArgument = 3001;
inline constexpr long NotAllowedNow = 3219;  // while a row is pending, or with this kind of record set
inline constexpr long NotSupported = 3251;   // the rows cannot be changed in this way
inline constexpr long ObjectClosed = 3704;
inline constexpr long ObjectOpen = 3705;
inline constexpr long ConnectionClosed = 3709;
inline constexpr long NoObject = 91;
inline constexpr long InvalidNull = 94;
inline constexpr long TypeMismatch = 13;
inline constexpr long RequiredField = 3314;
inline constexpr long SubscriptOutOfRange = 9;
inline constexpr long FileNotFound = 53;
inline constexpr long PermissionDenied = 70;
inline constexpr long DiskNotReady = 71;
inline constexpr long PathFileAccess = 75;
inline constexpr long InvalidCall = 5;
inline constexpr long OutOfMemory = 7;
inline constexpr long Internal = 51;
inline constexpr long PropertyNotSupported = 438;
inline constexpr long InvalidValue = 380;  // of a property
inline constexpr long InvalidIndex = 381;  // of a property that is a list
inline constexpr long IndexOutOfBounds = 35600;
inline constexpr long KeyNotUnique = 35602;
// Of the network.
inline constexpr long TimedOut = 12002;
inline constexpr long UnknownHost = 12007;
inline constexpr long NoConnection = 12029;
inline constexpr long ConnectionLost = 12030;
inline constexpr long NoSuccess = 12150;  // the server has replied that there is no such thing, or the like
inline constexpr long WrongType = 12151;  // a web page where a file was asked for
inline constexpr long BadReply = 12152;
inline constexpr long TooLarge = 12153;
inline constexpr long Redirected = 12156;  // elsewhere, or round and round
inline constexpr long NotSecure = 12157;   // a certificate that doesn't hold
}  // namespace errors

}  // namespace platform
