// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/codepage.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/unistr.h>

#include <memory>

#include "platform/error.h"

namespace platform {

namespace {

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

// What has no byte becomes "?"; the library's own substitution would pass over what it holds to be ignorable.
void QuestionMark(const void*, UConverterFromUnicodeArgs* arguments, const UChar*, int32_t, UChar32,
                  UConverterCallbackReason reason, UErrorCode* status) {
    if (reason <= UCNV_IRREGULAR) {
        *status = U_ZERO_ERROR;
        ucnv_cbFromUWriteBytes(arguments, "?", 1, 0, status);
    }
}

// A converter has state, so each thread has its own; opening one for each text would cost more than its work.
UConverter& TheConverter() {
    thread_local const Converter converter = [] {
        UErrorCode status = U_ZERO_ERROR;
        Converter opened(ucnv_open("windows-1252", &status));
        ucnv_setFromUCallBack(opened.get(), QuestionMark, nullptr, nullptr, nullptr, &status);
        if (U_FAILURE(status)) {
            throw Error(errors::InvalidCall, "The code page Windows-1252 can't be opened.", "codepage");
        }
        return opened;
    }();
    return *converter;
}

}  // namespace

std::string FromWindows1252(std::string_view bytes) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString text(bytes.data(), static_cast<int32_t>(bytes.size()), &TheConverter(), status);
    std::string result;
    return text.toUTF8String(result);
}

std::string ToWindows1252(std::string_view utf8) {
    const auto text =
        icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
    UErrorCode status = U_ZERO_ERROR;
    std::string result(static_cast<std::size_t>(text.length()), '\0');
    const int32_t length =
        text.extract(result.data(), static_cast<int32_t>(result.size()), &TheConverter(), status);
    result.resize(static_cast<std::size_t>(length));
    return result;
}

}  // namespace platform
