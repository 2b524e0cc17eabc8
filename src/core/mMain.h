// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/published.h"
#include "platform/adodb/adodb.h"
#include "platform/forms/form.h"
#include "texts/mTexter.h"

namespace vemora {

class frmChemical;

/// The windows that others show. Each is made at its first use and stays to the end of the run; the program
/// fills the table, so that nobody need know more of a window than it uses.
struct Windows {
    using Any = std::function<platform::Form&()>;
    Any Lang, Main;
    Any UChemicals, UConcentration, UTemperature, UMetal, UPlast, UTight, UMisc, URelations;
    Any Inställningar, UPD, About;
    std::function<frmChemical&()> Chemical;
};

/// Tables of the system, by the number that GetValdaMaterial and SetValdaMaterial take.
namespace typ {
inline constexpr std::int32_t Conc = 1;
inline constexpr std::int32_t Misc = 2;
inline constexpr std::int32_t Plast = 3;
inline constexpr std::int32_t Tight = 4;
inline constexpr std::int32_t Metal = 5;
inline constexpr std::int32_t Temp = 6;
}  // namespace typ

/// The program's entry, its one connection to the database, and what all windows share.
class mMain {
  public:
    /// The folder is that of the executable: the root of all paths.
    mMain(platform::Desktop& desktop, std::filesystem::path folder);
    mMain(const mMain&) = delete;
    mMain& operator=(const mMain&) = delete;
    ~mMain();

    std::unique_ptr<platform::adodb::Connection> gCn;
    std::string gSpråk;
    std::string gFelTitel;
    std::string gVärdeText1, gVärdeText2, gVärdeText3, gVärdeText4;
    bool gRedigeraAllt = false;

    platform::Desktop& Screen;
    const std::filesystem::path Folder;
    mTexter Texter;
    vemora::Windows Windows;
    vemora::Published Published = BuiltIn();

    /// Every window of the program made so far.
    std::vector<platform::Form*> Forms;
    /// What other windows use of the main window: its icon and its sort arrows.
    std::string MainIcon;
    const platform::ImageList* imgList = nullptr;

    /// Starts: language, database, global texts, main window. Returns with no window shown when there is no
    /// language file or the database can't be opened.
    void Main();
    bool ÖppnaDB();
    std::string TextTillAndra(const std::string& Nyckel) { return Texter.TextTillAndra(Nyckel); }

    /// Whether a row is the user's own. With ID -1 it is the chemical ChemID; otherwise the row ID of the
    /// table that a marker in Kategori names, "(Plast)" and its like. False where there is no such row.
    bool GetEgen(std::int32_t ChemID, std::int32_t ID, const std::string& Kategori);

    /// The rows of a table, or of them those that take part or those that don't. The caller closes the set;
    /// after a failure, which is reported, there is none.
    std::unique_ptr<platform::adodb::Recordset> GetValdaMaterial(std::int32_t Typ, bool BaraMed,
                                                                 bool BaraEjMed);

    /// Says whether a row takes part. True also when there is no such row; false after a reported failure.
    bool SetValdaMaterial(std::int32_t Typ, std::int32_t ID, bool Med);

    /// Whether any row of the six reference tables is left out.
    bool FilterPå();

    /// Whether delivered rows are locked, the normal state.
    bool IsSkyddat() const { return !gRedigeraAllt; }

    /// Opens a web page in the default browser; the program's own page for an empty address.
    void ÖppnaWebbsida(const std::string& Adress);
    void OpenManual() const;
    /// A page that lies in the program's folder: "data" or "manual", in the language of the program.
    std::string PageInFolder(const std::string& name) const;

    /// Widens the columns of a list so that each heading can be read. A hidden column stays hidden.
    void SetColWidth(platform::ListView& lvw);

    /// The one error report: text of "R0026", number, description and the ending that names the procedure.
    void Felrapport(const platform::Error& error, const char* ending);
};

/// A window of the program: a form with the shared values at hand under their own names.
class Window : public platform::Form {
  protected:
    Window(mMain& main, std::string name, platform::FormDesign design)
        : Form(main.Screen, std::move(name), std::move(design)),
          Main(main),
          gCn(main.gCn),
          gSpråk(main.gSpråk),
          gFelTitel(main.gFelTitel) {
        main.Forms.push_back(this);
    }

    std::string TextTillAndra(const std::string& Nyckel) const { return Main.TextTillAndra(Nyckel); }
    void SetTextOfForm() { Main.Texter.SetTextOfForm(*this); }
    /// The picture of the language, in the place of the first; in any other language as designed.
    void VisaBild(platform::ControlArray<platform::Image>& imgBild) const;
    void MousePointer(int shape) const { Screen().MousePointer(shape); }

    mMain& Main;
    std::unique_ptr<platform::adodb::Connection>& gCn;
    std::string& gSpråk;
    std::string& gFelTitel;
};

}  // namespace vemora
