// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// An import that is killed at some moment: kill_test TIMES. Each time the database must open, be sound, and
// hold every line whose writing had returned.

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <thread>

#include "platform/test_database.h"
#include "update/writers.h"

namespace {

namespace fs = std::filesystem;
using std::chrono::steady_clock;

constexpr int kChemicals = 12;
constexpr int kLines = 3;  // of values, for each
constexpr const char* kSigns[] = {"+", "-", "0"};

std::string Sign(int chemical, int line) {
    return kSigns[(chemical + line) % 3];
}

void Open(platform::adodb::Connection& connection, const fs::path& file) {
    connection.ConnectionString = "Data Source=" + file.string();
    connection.Properties["Jet OLEDB:Database Password"] = test::kPassword;
    connection.Open();
}

// The import, which tells by a byte each line that is written.
int Import(const fs::path& file) {
    platform::adodb::Connection connection;
    Open(connection, file);
    vemora::UpdateWriters writers(connection, [](const platform::Error& error, const char*) {
        std::fprintf(stderr, "%s\n", error.what());
        std::_Exit(3);
    });
    const auto written = [] {
        if (::write(STDOUT_FILENO, ".", 1) != 1) {
            std::_Exit(4);
        }
    };
    written();
    for (int chemical = 1; chemical <= kChemicals; ++chemical) {
        const std::string id = std::to_string(chemical);
        writers.ChemID = chemical;
        writers.SättKemikalie(vemora::UpdateFields(id + ";F;Namn" + id + ";n;n;n;n;n;n;n;n"));
        written();
        for (int line = 0; line < kLines; ++line) {
            std::string text = ";;10 %;10 %;10 %;;;;;;;;;" + std::to_string(line);
            for (int cell = 0; cell < 16; ++cell) {
                text += ";" + Sign(chemical, line);
            }
            writers.SättVärden(vemora::UpdateFields(text));
            written();
        }
    }
    return 0;
}

struct Outcome {
    int Lines = -1;  // written before the end; -1: the import hadn't begun
    bool Whole = false;
    double Milliseconds = 0;
};

/// Runs the import in a process of its own, and kills it after a time, or never.
Outcome RunAndKill(const char* self, const fs::path& file, double after) {
    int ends[2];
    if (::pipe(ends) != 0) {
        std::exit(2);
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::execl(self, self, "import", file.c_str(), nullptr);
        std::_Exit(5);
    }
    ::close(ends[1]);
    Outcome outcome;
    char c = 0;
    // The clock begins when the database is open.
    if (::read(ends[0], &c, 1) == 1) {
        outcome.Lines = 0;
    }
    const auto begin = steady_clock::now();
    std::thread killer;
    if (after >= 0) {
        killer = std::thread([&] {
            std::this_thread::sleep_until(begin + std::chrono::duration<double, std::milli>(after));
            ::kill(child, SIGKILL);
        });
    }
    while (::read(ends[0], &c, 1) == 1) {
        ++outcome.Lines;
    }
    outcome.Milliseconds = std::chrono::duration<double, std::milli>(steady_clock::now() - begin).count();
    if (killer.joinable()) {
        killer.join();
    }
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    outcome.Whole = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return outcome;
}

/// What is wrong with the database; empty when nothing is.
std::string Fault(const fs::path& file, int lines) {
    {
        platform::Store store(file, test::kPassword, platform::Store::Access::Exclusive);
        auto check = store.Prepare("PRAGMA integrity_check");
        if (!check.Step() || check.Text(0) != "ok") {
            return "the file is not sound";
        }
    }
    platform::adodb::Connection connection;
    Open(connection, file);
    for (int i = 0; i < lines; ++i) {
        const int chemical = i / (kLines + 1) + 1;
        const int line = i % (kLines + 1) - 1;
        const std::string id = std::to_string(chemical);
        if (line < 0) {
            if (test::Ask(connection, "SELECT NameSE FROM Chemical WHERE ID = " + id) != "Namn" + id) {
                return "the chemical " + id + " is missing";
            }
            continue;
        }
        const std::string temp =
            test::Ask(connection, "SELECT ID FROM Temp WHERE Temp = '" + std::to_string(line) + "'");
        for (const auto& [table, cells] : {std::pair{"relPlast", 6}, {"relMetal", 4}, {"relTight", 6}}) {
            std::string expected;
            for (int cell = 0; cell < cells; ++cell) {
                expected += (cell > 0 ? "/" : "") + Sign(chemical, line);
            }
            if (test::Ask(connection, std::string("SELECT TheValue FROM ") + table + " WHERE ChemID = " + id +
                                          " AND TempID = " + (temp.empty() ? "0" : temp)) != expected) {
                return std::string("rows are missing in ") + table;
            }
        }
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && argv[1] == std::string("import")) {
        return Import(argv[2]);
    }
    const int times = argc == 2 ? std::atoi(argv[1]) : 0;
    const test::TestDatabase database;
    const std::string empty = test::ReadAll(database.File());
    const fs::path file = database.Folder() / "killed.mdb";
    const auto anew = [&] {
        fs::remove(file.string() + "-wal");
        std::ofstream(file, std::ios::binary) << empty;
    };
    anew();
    const Outcome whole = RunAndKill(argv[0], file, -1);
    constexpr int kAll = kChemicals * (kLines + 1);
    if (!whole.Whole || whole.Lines != kAll || !Fault(file, kAll).empty()) {
        std::fprintf(stderr, "an import that nobody kills fails\n");
        return 1;
    }
    std::mt19937 random(20261123);
    int cut = 0;
    int begun = 0;
    for (int i = 0; i < times; ++i) {
        anew();
        const double share = (i + std::uniform_real_distribution<double>(0, 1)(random)) / times;
        const Outcome outcome = RunAndKill(argv[0], file, whole.Milliseconds * share);
        cut += outcome.Whole ? 0 : 1;
        begun += outcome.Lines > 0 ? 1 : 0;
        const std::string fault = Fault(file, outcome.Lines);
        if (!fault.empty()) {
            std::fprintf(stderr, "killed after %d lines: %s\n", outcome.Lines, fault.c_str());
            return 1;
        }
    }
    std::printf("%d imports, %d of them killed, %d of all after some lines: each database was whole\n", times,
                cut, begun);
    // With all of them over before they are killed, nothing would have been tried.
    return times == 0 || (cut > times / 2 && begun > times / 2) ? 0 : 1;
}
