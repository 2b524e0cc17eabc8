// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "platform/text/text.h"
#include "support/session.h"

namespace vemora {
namespace {

/// What all windows of maintenance have, and those of the materials.
const std::string kRecord =
    " cmdAdd=R0223 cmdDelete=R0220 cmdClose=R0148 cmdUpdate=R0224 cmdCancel=R0171 cmdEdit=R0226";
const std::string kMaterial = kRecord + " lblLabels(2)=R0249 lblLabels(1)=R0260 ";

/// The key of each window's title, and the keys of its controls: caption or tool tip, ";", tool tip.
const std::map<std::string, std::string> kBindings = {
    {"frmMain",
     "=R0001 cmdSök=R0180 cmdStäng=R0181 optSökaI(0)=R0183 optSökaI(1)=R0031 optSökaI(2)=R0018 "
     "optSökaI(3)=R0035 optSökaI(4)=R0036 Label1(0)=R0188 Label1(1)=R0189 mnuFile=R0190 mnuExit=R0181 "
     "mnuMaintinence=R0193 mnuChemicals=R0194 mnuUConcentration=R0195 mnuUTemperature=R0196 mnuUMetal=R0197 "
     "mnuUPlast=R0198 mnuUTight=R0199 mnuUMisc=R0200 mnuURelations=R0201 mnuInställningar=R0202 mnuOm=R0203 "
     "mnuUpd=R0204 mnuInfo=R0205"},
    {"frmChemical",
     "=R0001 lblLabels(0)=R0152 lblLabels(1)=R0155 lblLabels(2)=R0156 lblLabels(3)=R0157 lblLabels(4)=R0158 "
     "lblLabels(5)=R0036 lblLabels(10)=R0035 lblLabels(11)=R0154 lblLabels(12)=R0151 oFormula1=R0331 "
     "lblÄndrad=R0153 chkFilter=R0010 fraMaterialVal=R0128;R0129 chkMaterial(0)=R0136;R0129 "
     "chkMaterial(1)=R0134;R0129 chkMaterial(2)=R0132;R0129 chkMaterial(3)=R0130;R0129 fraVärden=R0138;R0139 "
     "chkVärde(0)=R0146;R0139 chkVärde(1)=R0144;R0139 chkVärde(2)=R0142;R0139 chkVärde(3)=R0115;R0139 "
     "fraSpråk=R0124 opt1Språk(0)=R0126 opt1Språk(1)=R0125 opt1Språk(2)=R0127 lblFilter=R0012 "
     "cmdStäng=R0148;R0149 mnuRedigera=R0165 mnuClip=R0166"},
    {"frmUChemicals",
     "=R0218 txtEgen=R0153 oFormula1=R0331 cmdRefresh=R0221 lblLabels(11)=R0227 lblLabels(10)=R0164 "
     "lblLabels(9)=R0163 lblLabels(8)=R0162 lblLabels(7)=R0161 lblLabels(6)=R0160 lblLabels(5)=R0159 "
     "lblLabels(4)=R0234 lblLabels(3)=R0235 lblLabels(2)=R0236 lblLabels(1)=R0155" +
         kRecord},
    {"frmUConcentration",
     "=R0238 cmdRefresh=R0221 lblLabels(11)=R0246 lblLabels(4)=R0247 lblLabels(3)=R0248 lblLabels(2)=R0249" +
         kRecord},
    {"frmUTemperature", "=R0016 lblLabels(11)=R0316 lblLabels(2)=R0249" + kRecord},
    {"frmUMetal", "=R0136 cmdRefresh=R0221 lblLabels(11)=R0258" + kMaterial},
    {"frmUPlast", "=R0134 lblLabels(11)=R0287" + kMaterial},
    {"frmUTight", "=R0132 lblLabels(11)=R0327" + kMaterial},
    {"frmUMisc", "=R0130 lblLabels(11)=R0269" + kMaterial},
    {"frmURelations",
     "=R0290 txtEgenTemp=R0153 txtEgenKon=R0153 txtEgenKem=R0153 txtEgen=R0153 Text1=R0295 "
     "cmdKoppla(1)=R0220 cmdKoppla(0)=R0298 txtKopplad=R0299 cmdClose=R0148 lblLabels(0)=R0152 "
     "lblLabels(12)=R0306 lblChem=R0156"},
    {"frmInställningar",
     "=R0167 cboLang=R0338 cmdMarkera(1)=R0168 cmdMarkera(0)=R0169 cmdSpara=R0170 cmdStäng=R0171 "
     "lblLabels(1)=R0178"},
    {"frmUPD", "=R0077 cmdImport=R0275;R0276 cmdClose=R0273;R0274 lblBesk=R0277 lblInfo=R0278"},
    {"frmAbout",
     "=R0205 cmdOK=R0170 imgMaker=;R0120 imgDistributor=;R0121 lblDisclaimer=R0330 cmdSysInfo=R0340"}};

/// Every control is bound to its keys and shows a text, and no letter stands for two things in a window or in
/// a menu.
void Check(const platform::Form& form) {
    SCOPED_TRACE(form.Name());
    std::set<std::string> bound = {"=" + form.Tag.Get()};
    std::map<const platform::Control*, std::map<std::string, std::string>> taken;
    for (const platform::Control* control : form.Controls()) {
        const std::string name = control->FullName();
        if (!control->Tag->empty()) {
            bound.insert(name + "=" + control->Tag.Get());
            EXPECT_NE(control->CaptionText() + control->ToolTipText.Get(), "") << name;
        }
        const bool entry = control->TypeName() == "Menu" && control->Container() != nullptr;
        const std::string caption = platform::LCase(control->CaptionText());
        if (const auto at = caption.find('&'); at != std::string::npos) {
            const auto letter = platform::Left(caption.substr(at + 1), 1);
            const auto [other, free] = taken[entry ? control->Container() : nullptr].emplace(letter, name);
            EXPECT_TRUE(free) << letter << " is " << name << " and " << other->second;
        }
    }
    std::istringstream keys(kBindings.at(form.Name()));
    EXPECT_EQ(bound, std::set<std::string>(std::istream_iterator<std::string>(keys), {}));
}

TEST(WindowTexts, AreThereInEveryLanguageWithMnemonicsOfTheirOwn) {
    for (const std::string language : {"Svenska", "English", "Deutsch"}) {
        SCOPED_TRACE(language);
        test::Session run(language);
        run.Start();
        Check(run.Main());
        run.OpenSheet(3, [](frmChemical& sheet) {
            Check(sheet);
            sheet.chkFilter.InputClick();  // has another caption now
            Check(sheet);
        });
        // In the third language most windows have nothing to show, and some can't be opened at all.
        Windows& all = run.Core.Windows;
        std::vector<Windows::Any*> windows = {&all.UTight, &all.URelations, &all.Inställningar, &all.UPD,
                                              &all.About};
        if (language != "Deutsch") {
            windows.insert(windows.end(), {&all.UChemicals, &all.UConcentration, &all.UTemperature,
                                           &all.UMetal, &all.UPlast, &all.UMisc});
        }
        for (Windows::Any* window : windows) {
            run.Desktop.WhileModal<platform::Form>([](platform::Form& form) {
                Check(form);
                form.Unload();
            });
            run.Desktop.Event([&] { (*window)().Show(platform::vbModal); });
        }
        run.Boxes();
    }
}

}  // namespace
}  // namespace vemora
