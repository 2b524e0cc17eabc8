// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// An import that is killed at some moment: kill_test TIMES. Each time the database must open, be sound, and
// hold every line whose writing had returned.

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <ctime>

#include "platform/test_database.h"
#include "platform/text/text.h"
#include "update/writers.h"

namespace {

using std::chrono::duration, std::chrono::steady_clock;

constexpr int kChemicals = 12;
constexpr int kLines = 1 + 3;  // for each: its own and those of values
constexpr const char* kSigns[] = {"+", "-", "0"};

/// The verdict of a line, as often as there are materials, with something before each.
std::string Verdicts(int i, const char* before, int materials) {
    return platform::Replace(std::string(static_cast<std::size_t>(materials), 'x'), "x",
                             before + std::string(kSigns[i % 3]));
}

// The import, which tells by a byte that it has begun and each line that is written. After some seconds, or
// never at 0, the system ends the process between any two instructions.
int Import(const test::TestDatabase& database, int told, double after) {
    platform::adodb::Connection connection;
    database.Open(connection);
    vemora::UpdateWriters writers(connection, [](const platform::Error& error, const char*) {
        std::fprintf(stderr, "%s\n", error.what());
        std::_Exit(3);
    });
    sigevent kill{};
    kill.sigev_notify = SIGEV_SIGNAL;
    kill.sigev_signo = SIGKILL;
    timer_t timer{};
    const itimerspec when{{}, {static_cast<time_t>(after), static_cast<long>(after * 1e9) % 1'000'000'000}};
    if (::timer_create(CLOCK_MONOTONIC, &kill, &timer) != 0 ||
        ::timer_settime(timer, 0, &when, nullptr) != 0) {
        std::_Exit(5);
    }
    for (int i = 0; ::write(told, ".", 1) == 1 && i < kChemicals * kLines; ++i) {
        const std::string id = std::to_string(i / kLines + 1);
        if (i % kLines == 0) {
            writers.ChemID = i / kLines + 1;
            writers.SättKemikalie(vemora::UpdateFields(id + ";F;Namn" + id + ";n;n;n;n;n;n;n;n"));
        } else {
            writers.SättVärden(vemora::UpdateFields(";;10 %;10 %;10 %;;;;;;;;;" + std::to_string(i % kLines) +
                                                    Verdicts(i, ";", 16)));
        }
    }
    return 0;
}

struct Outcome {
    int Lines = -1;  // written before the end; -1: the import hadn't begun
    bool Whole = false;
    double Seconds = 0;
};

/// Runs the import in a process of its own.
Outcome Run(const test::TestDatabase& database, double after) {
    int ends[2];
    if (::pipe(ends) != 0) {
        std::exit(2);
    }
    const pid_t child = ::fork();
    if (child == 0) {
        std::_Exit(Import(database, ends[1], after));
    }
    ::close(ends[1]);
    Outcome outcome;
    steady_clock::time_point begin;
    for (char c = 0; ::read(ends[0], &c, 1) == 1; ++outcome.Lines) {
        begin = outcome.Lines < 0 ? steady_clock::now() : begin;
    }
    outcome.Seconds = duration<double>(steady_clock::now() - begin).count();
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    outcome.Whole = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return outcome;
}

/// What is wrong with the database; empty when nothing is.
std::string Fault(const test::TestDatabase& database, int lines) {
    if (!test::IsSound(database.File())) {
        return "the file is not sound";
    }
    platform::adodb::Connection connection;
    database.Open(connection);
    for (int i = 0; i < lines; ++i) {
        const std::string id = std::to_string(i / kLines + 1);
        if (test::Ask(connection, "SELECT NameSE FROM Chemical WHERE ID = " + id) != "Namn" + id) {
            return "the chemical " + id + " is missing";
        }
        const std::string where = " WHERE ChemID = " + id +
                                  " AND TempID IN (SELECT ID FROM Temp WHERE Temp = '" +
                                  std::to_string(i % kLines) + "')";
        for (const auto& [table, cells] : {std::pair{"relPlast", 6}, {"relMetal", 4}, {"relTight", 6}}) {
            const std::string rows =
                test::Ask(connection, std::string("SELECT TheValue FROM ") + table + where);
            if (i % kLines != 0 && "/" + rows != Verdicts(i, "/", cells)) {
                return std::string("rows are missing in ") + table;
            }
        }
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    const int times = argc == 2 ? std::atoi(argv[1]) : 0;
    constexpr int kAll = kChemicals * kLines;
    double whole = 0;
    std::mt19937 random(20261123);
    int cut = 0;
    int begun = 0;
    for (int i = -1; i < times; ++i) {  // the first one nobody kills
        const test::TestDatabase database;
        const double share = (i + std::uniform_real_distribution<double>(0, 1)(random)) / times;
        const Outcome outcome = Run(database, i < 0 ? 0 : whole * share);
        std::string fault = Fault(database, outcome.Lines);
        if (i < 0) {
            whole = outcome.Seconds;
            fault += outcome.Whole && outcome.Lines == kAll ? "" : "nobody has killed it";
        } else {
            cut += outcome.Whole ? 0 : 1;
            whole = outcome.Whole ? std::min(whole, outcome.Seconds) : whole;  // the first may have been slow
            begun += outcome.Lines > 0 ? 1 : 0;
        }
        if (!fault.empty()) {
            std::fprintf(stderr, "ended after %d lines: %s\n", outcome.Lines, fault.c_str());
            return 1;
        }
    }
    std::printf("%d imports, %d of them killed, %d of all after some lines: each database was whole\n", times,
                cut, begun);
    // With all of them over before they are killed, nothing would have been tried.
    return times == 0 || (cut > times / 2 && begun > times / 2) ? 0 : 1;
}
