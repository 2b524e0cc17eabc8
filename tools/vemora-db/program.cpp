// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/program.h"

#include <CLI/CLI.hpp>

#include <fstream>

#include "platform/error.h"
#include "platform/files/files.h"
#include "vemora-db/check.h"
#include "vemora-db/create.h"
#include "vemora-db/diff.h"
#include "vemora-db/export.h"
#include "vemora-db/merge.h"
#include "vemora-db/password.h"
#include "vemora-db/progress.h"
#include "vemora-db/write_update.h"

namespace vemora_db {

namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  vemora-db create data Vemora.mdb          make the database to be delivered\n"
    "  vemora-db check Vemora.mdb                is it sound and complete?\n"
    "  vemora-db export Vemora.mdb data --force  bring changes in the database back\n"
    "  vemora-db update-file new.mdb Varden.skv  make the update for older databases\n"
    "  vemora-db diff Vemora.mdb Varden.skv      what would the update change?\n"
    "  vemora-db merge Vemora.mdb old.mdb        take the user's own rows along\n"
    "\n"
    "Exit status: 0 all is well, 1 there are findings or differences, 2 wrong usage, 3 bad data,\n"
    "4 a file or the database failed. See also: vemora-db COMMAND --help";

constexpr const char* kCreateExamples =
    "DATA holds chemicals.csv, concentrations.csv, temperatures.csv, materials.csv,\n"
    "sources.csv and verdicts-metal.csv, -plast, -tight and -misc. A fault in them is\n"
    "told with its place, as file:line:column, and no database is made.\n"
    "\n"
    "Examples:\n"
    "  vemora-db create data Vemora.mdb\n"
    "      Makes Vemora.mdb; an existing one is left alone and the command fails.\n"
    "  vemora-db create --force data Vemora.mdb\n"
    "      Replaces an existing one, once the new one is complete.\n"
    "  vemora-db create --password-file secret.txt data Vemora.mdb\n"
    "      The password is the first line of secret.txt.";

constexpr const char* kExportExamples =
    "The rows of the user come along, marked as such. Rows are sorted by ID, so that\n"
    "two exports can be compared line by line.\n"
    "\n"
    "Examples:\n"
    "  vemora-db export Vemora.mdb mine\n"
    "      Writes nine CSV files into the folder mine, which is made if need be.\n"
    "  vemora-db export --force Vemora.mdb data\n"
    "      Replaces the CSV files in data.";

constexpr const char* kCheckExamples =
    "Errors are what makes the program fail or show wrong things: damaged pages,\n"
    "wrong tables, values out of their domain. Warnings are what somebody should look\n"
    "at: rows that refer to nothing, names that are there twice, holes. The database\n"
    "is only read.\n"
    "\n"
    "Examples:\n"
    "  vemora-db check Vemora.mdb\n"
    "      Prints a table of findings; exit status 1 when there are any.\n"
    "  vemora-db check --no-warnings Vemora.mdb\n"
    "      Looks at errors only, for the exit status, too.\n"
    "  vemora-db check --review data/review.csv Vemora.mdb\n"
    "      Looks also for verdicts that a review of the data has refused.\n"
    "  vemora-db check --quiet Vemora.mdb || echo \"not sound\"\n"
    "      Tells it by the exit status alone.";

constexpr const char* kUpdateExamples =
    "Findings tell what an update file can't carry. Errors are what it would have a\n"
    "place for: texts with semicolons, line breaks or characters outside of\n"
    "Windows-1252, which are replaced, and verdicts whose concentration or temperature\n"
    "can't be named, which are left out. Warnings are what it has no place for: other\n"
    "materials, rich formulas, the user's own rows.\n"
    "\n"
    "Examples:\n"
    "  vemora-db update-file Vemora.mdb Varden.skv\n"
    "      Writes all chemicals with their verdicts.\n"
    "  vemora-db update-file --force Vemora.mdb Varden.skv Svavelsyra \"Citronsyra\"\n"
    "      Writes these two, by their Swedish names, over an existing file.";

constexpr const char* kDiffExamples =
    "The update is taken into a copy of OLD in the way the program does it, and the\n"
    "copy is compared with OLD; both OLD and NEW stay as they are. A new blank verdict\n"
    "is counted, and told as a row only with --blanks. Without a difference the exit\n"
    "status is 0.\n"
    "\n"
    "Examples:\n"
    "  vemora-db diff Vemora.mdb Varden.skv\n"
    "      What the update file would change.\n"
    "  vemora-db diff Vemora.mdb new.mdb\n"
    "      What the update file of new.mdb would change.";

constexpr const char* kMergeExamples =
    "FILE is a new delivered database, FROM the one that was used before. Rows are the\n"
    "same whose Swedish names are equal. The user's rows that FILE hasn't are added,\n"
    "the user's verdicts go before delivered ones, and what took no part takes none.\n"
    "What can't be carried is told; rows that were deleted in FROM are there again.\n"
    "FROM is only read; on a failure FILE stays as it is.\n"
    "\n"
    "Examples:\n"
    "  vemora-db merge Vemora.mdb old.mdb\n"
    "      Brings along what is the user's own.\n"
    "  vemora-db merge --no-warnings Vemora.mdb old.mdb\n"
    "      Tells only what isn't carried, not what was written over.";

const std::string kProgram = "vemora-db: ";
constexpr const char* kOutputLost = "Writing the output failed.";

struct Arguments {
    std::string Data;
    std::string File;
    std::string Other;
    std::vector<std::string> Chemicals;
    std::string Review;
    std::string PasswordFile;
    bool Force = false;
    bool Quiet = false;
    bool NoWarnings = false;
    bool Own = false;
    bool Blanks = false;
};

void AddPassword(CLI::App& command, Arguments& arguments) {
    command
        .add_option(
            "--password-file", arguments.PasswordFile,
            "The password is the first line of this file; without it, it's that of the delivered database")
        ->type_name("FILE");
}

void AddForce(CLI::App& command, Arguments& arguments, const char* what) {
    command.add_flag("-f,--force", arguments.Force, what);
}

void AddFile(CLI::App& command, Arguments& arguments, const char* what) {
    command.add_option("FILE", arguments.File, what)->required()->type_name("");
}

void AddData(CLI::App& command, Arguments& arguments, const char* what) {
    command.add_option("DATA", arguments.Data, what)->required()->type_name("");
}

void AddOther(CLI::App& command, Arguments& arguments, const char* name, const char* what) {
    command.add_option(name, arguments.Other, what)->required()->type_name("");
}

void AddNoWarnings(CLI::App& command, Arguments& arguments) {
    command.add_flag("--no-warnings", arguments.NoWarnings, "Look at errors only");
}

std::string Password(const Arguments& arguments) {
    if (arguments.PasswordFile.empty()) {
        return std::string(kDeliveredPassword);
    }
    std::string password = platform::ReadFile(platform::PathFromUtf8(arguments.PasswordFile));
    password.resize(std::min(password.find_first_of("\r\n"), password.size()));
    if (password.empty()) {
        throw WrongUsage(arguments.PasswordFile + ": the first line holds no password");
    }
    return password;
}

/// Lets a result be printed and tells whether it holds findings that were asked for.
template <class Result>
Status Tell(const Result& result, const Findings& findings, const Arguments& arguments, std::ostream& out,
            Progress& progress) {
    progress.Clear();
    if (!arguments.Quiet) {
        result.Print(out, !arguments.NoWarnings);
        if (!out.flush()) {
            throw platform::Error(platform::errors::DiskNotReady, kOutputLost, "check");
        }
    }
    const bool found =
        findings.Has(Severity::Error) || (!arguments.NoWarnings && findings.Has(Severity::Warning));
    return found ? Status::Findings : Status::Fine;
}

Status RunCheck(const Arguments& arguments, std::ostream& out, Progress& progress) {
    const Findings findings = Check(platform::PathFromUtf8(arguments.File),
                                    platform::PathFromUtf8(arguments.Review), Password(arguments), progress);
    return Tell(findings, findings, arguments, out, progress);
}

Status RunUpdate(const Arguments& arguments, std::ostream& out, Progress& progress) {
    const Findings findings =
        WriteUpdate(platform::PathFromUtf8(arguments.File), platform::PathFromUtf8(arguments.Other),
                    Password(arguments), {arguments.Chemicals, arguments.Own}, arguments.Force, progress);
    return Tell(findings, findings, arguments, out, progress);
}

Status RunDiff(const Arguments& arguments, std::ostream& out, Progress& progress) {
    const Differences differences =
        Diff(platform::PathFromUtf8(arguments.File), platform::PathFromUtf8(arguments.Other),
             Password(arguments), arguments.Blanks, progress);
    const Status status = Tell(differences, differences.Strange, arguments, out, progress);
    return differences.Any() ? Status::Findings : status;
}

Status RunMerge(const Arguments& arguments, std::ostream& out, Progress& progress) {
    const Merged merged = Merge(platform::PathFromUtf8(arguments.File),
                                platform::PathFromUtf8(arguments.Other), Password(arguments), progress);
    return Tell(merged, merged.Strange, arguments, out, progress);
}

Status RunExport(const Arguments& arguments, std::ostream& err, Progress& progress) {
    const std::size_t strange =
        Export(platform::PathFromUtf8(arguments.File), platform::PathFromUtf8(arguments.Data),
               Password(arguments), arguments.Force, progress);
    if (strange == 0) {
        return Status::Fine;
    }
    progress.Clear();
    err << kProgram << strange
        << " verdicts are none of +, -, 0 and the blank; they are written with \"?\" in front, and create "
           "will "
           "refuse them\n";
    return Status::BadData;
}

}  // namespace

Status Run(int argc, const char* const* argv, std::ostream& out, std::ostream& err, bool terminal) {
    Arguments arguments;
    CLI::App app("Makes, exports, checks, updates and merges databases of Vemora.", "vemora-db");
    app.footer(kExamples);
    app.require_subcommand(1);
    app.set_version_flag("--version", std::string("vemora-db " VEMORA_VERSION), "Print the version and exit");

    CLI::App& create = *app.add_subcommand("create", "Make the database FILE from the CSV files in DATA");
    create.footer(kCreateExamples);
    AddData(create, arguments, "Folder of the CSV files");
    AddFile(create, arguments, "Database to be made");
    AddForce(create, arguments, "Replace an existing FILE");
    AddPassword(create, arguments);

    CLI::App& exporting =
        *app.add_subcommand("export", "Write the rows of the database FILE as CSV into DATA");
    exporting.footer(kExportExamples);
    AddFile(exporting, arguments, "Database to be read");
    AddData(exporting, arguments, "Folder for the CSV files");
    AddForce(exporting, arguments, "Replace CSV files that are there");
    AddPassword(exporting, arguments);

    CLI::App& check = *app.add_subcommand("check", "Look for all that is wrong in the database FILE");
    check.footer(kCheckExamples);
    AddFile(check, arguments, "Database to be checked");
    check
        .add_option("--review", arguments.Review,
                    "Also look for what this file has refused, and for materials with few verdicts")
        ->type_name("FILE");
    check.add_flag("-q,--quiet", arguments.Quiet, "Print nothing; the exit status tells");
    AddNoWarnings(check, arguments);
    AddPassword(check, arguments);

    CLI::App& update = *app.add_subcommand(
        "update-file", "Write the update file OUT that brings older databases up to FILE");
    update.footer(kUpdateExamples);
    AddFile(update, arguments, "Database to be read");
    AddOther(update, arguments, "OUT", "Update file to be written");
    update.add_option("CHEMICAL", arguments.Chemicals, "Only these, by their Swedish names")->type_name("");
    update.add_flag("--own", arguments.Own, "Write the user's own rows, too");
    AddForce(update, arguments, "Replace an existing OUT");
    AddNoWarnings(update, arguments);
    AddPassword(update, arguments);

    CLI::App& diff = *app.add_subcommand("diff", "Tell what an update would change in the database OLD");
    diff.footer(kDiffExamples);
    diff.add_option("OLD", arguments.File, "Database that the update is for")->required()->type_name("");
    AddOther(diff, arguments, "NEW", "Update file (*.skv), or the newer database");
    diff.add_flag("--blanks", arguments.Blanks, "Tell each new blank verdict, too");
    AddNoWarnings(diff, arguments);
    AddPassword(diff, arguments);

    CLI::App& merge =
        *app.add_subcommand("merge", "Bring the user's rows of FROM into the new database FILE");
    merge.footer(kMergeExamples);
    AddFile(merge, arguments, "New database, which is changed");
    AddOther(merge, arguments, "FROM", "Old database, which is only read");
    AddNoWarnings(merge, arguments);
    AddPassword(merge, arguments);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (app.exit(error, out, err) != 0) {
            return Status::WrongUsage;
        }
        if (!out.flush()) {
            err << kProgram << kOutputLost << '\n';
            return Status::Failed;
        }
        return Status::Fine;
    }
    Progress progress(err, terminal);
    const auto failed = [&](Status status, const std::string& message) {
        progress.Clear();
        err << message << '\n';
        return status;
    };
    try {
        if (create.parsed()) {
            Create(platform::PathFromUtf8(arguments.Data), platform::PathFromUtf8(arguments.File),
                   Password(arguments), arguments.Force, progress);
            return Status::Fine;
        }
        if (exporting.parsed()) {
            return RunExport(arguments, err, progress);
        }
        const auto run = check.parsed()    ? RunCheck
                         : update.parsed() ? RunUpdate
                         : diff.parsed()   ? RunDiff
                                           : RunMerge;
        return run(arguments, out, progress);
    } catch (const BadData& error) {
        // The place stands first in the line, where editors and build tools look for it.
        return failed(Status::BadData, error.what());
    } catch (const WrongUsage& error) {
        return failed(Status::WrongUsage, kProgram + error.what());
    } catch (const platform::Error& error) {
        // The store doesn't tell which file it is about, the others do.
        const std::string file = error.Source == "store" ? arguments.File + ": " : "";
        return failed(Status::Failed, kProgram + file + error.Description);
    } catch (const std::exception& error) {
        return failed(Status::Failed, kProgram + error.what());
    }
}

}  // namespace vemora_db
