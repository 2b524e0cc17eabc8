// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/store/sources.h"

#include <algorithm>

#include "platform/text/text.h"

namespace platform {

namespace {

std::vector<std::string> Parts(std::string_view text, std::string_view separators) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(separators), text.size());
        if (std::string part = Trim(text.substr(0, end)); !part.empty()) {
            parts.push_back(std::move(part));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

}  // namespace

std::vector<SourceGroup> ParseSources(std::string_view text) {
    std::vector<SourceGroup> groups;
    for (const std::string& part : Parts(text, ";")) {
        const std::size_t colon = part.find(':');
        const std::string_view all = part;
        SourceGroup group;
        if (colon != std::string::npos) {
            group.Keys = Parts(all.substr(0, colon), ",");
        }
        group.Codes = Parts(colon == std::string::npos ? all : all.substr(colon + 1), "+,");
        if (!group.Codes.empty()) {
            groups.push_back(std::move(group));
        }
    }
    return groups;
}

std::vector<std::string> SourceCodes(std::string_view text, std::string_view key) {
    std::vector<std::string> codes;
    for (SourceGroup& group : ParseSources(text)) {
        if (std::find(group.Keys.begin(), group.Keys.end(), key) != group.Keys.end()) {
            return std::move(group.Codes);
        }
        if (group.Keys.empty() && codes.empty()) {
            codes = std::move(group.Codes);
        }
    }
    return codes;
}

}  // namespace platform
