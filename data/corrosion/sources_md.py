# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# SOURCES.md anew, with the figures of this run.
import collections
def table(rows): return '\n'.join(rows)
def write(path,old,f):
    s=open(old).read()
    head=s[:s.index('Contents:')]
    head+=f"""Contents: {f['chem']} chemicals, {f['mat']} materials, {f['conc']} concentrations, 7 temperatures, {f['all']} verdicts
(metals {f['metal']}, plastics {f['plast']}, seals {f['tight']}, other {f['misc']}). At 20 ºC, where most sources speak,
{f['at20']} (metals {f['m20']}, plastics {f['p20']}, seals {f['t20']}, other {f['o20']}); the rest are the same statements at
other temperatures: a highest temperature counts at each below it, "not recommended" at all of them.

## The sources

| Code | What | Where | Standing | Verdicts that rest on it |
|---|---|---|---|---:|
| LC1 | Chemical compatibility table: PVC, PP, PVDF, PFA, PTFE and stainless 316 at stated concentration and temperature (mostly 40 and 80 ºC) | GitHub repository benriggins/libertyces-data, public/datasets/chemical-compatibility.csv | facts quoted with attribution: its own page carries no licence line | {f['LC1']} |
| LC2 | Highest service temperature of pump materials for each chemical | same repository, public/datasets/pump-material-resistance.csv | licence seen: CC BY 4.0 | {f['LC2']} |
| LC3 | Seal materials rated 1 to 4 | same repository, public/datasets/seal-material-compatibility.csv | licence seen: CC BY 4.0 | {f['LC3']} |
| BU1 | Plastics, elastomers, aluminium and stainless steel rated 1 to 4 at 20 and 50 ºC, with concentrations | GitHub repository 729r2pzfqs-ux/chemicalresistance.org, data/chemicals.json | second hand: the publisher says that the list's owner allows it; the owner's own words were not found | {f['BU1']} |
| RS1 | Thirteen elastomers rated 1 to 4 | GitHub repository joelp22-maker/referencesource-data, chemical-elastomer-material-compatibility/data.json | facts quoted with attribution | {f['RS1']} |
| ND1 | Corrosion tests of metals: rates in mm a year or grades A to D, with concentration, temperature and conditions | NIST CORR-DATA, DOI 10.18434/M3TH4R; read from the copy in GitHub repository irenerendon/Pre_Entrega_Machine_learning, CORR-DATA_Database.csv | licence: copying and adapting are allowed with acknowledgement and a dated note of changes | {f['ND1']} |

A verdict may rest on several sources. The sheet tells them for each row.

Attribution and changes:

- LC1, LC2, LC3: LibertyCES (Liberty Chemical Equipment & Supply, Inc.), www.libertyces.com. The pages of LC2 and LC3 state
  Creative Commons Attribution 4.0 International, https://creativecommons.org/licenses/by/4.0/. The publisher's home page
  says of its tables that they are published under a permissive licence and asks to be named with a link; it took them from
  makers' charts. Changes: a selection was taken, the ratings were turned into verdicts by the rules below, and the names
  were set in three languages.
- BU1: resistance list of Bürkle GmbH, as published by chemicalresistance.org, which says that Bürkle allows the data to be
  "freely passed on and copied" with attribution. Only the ratings were carried over.
- RS1: referencesource.org. The collection states that its ratings are facts published in a chart that each record quotes,
  and that facts are not subject to copyright. Only the ratings were carried over.
- ND1: National Institute of Standards and Technology (NIST), U.S. Department of Commerce, corrosion data set CORR-DATA. NIST
  neither has looked at this use of it nor endorses it. Changes, 23 November 2026: {f['read']} was taken, the materials
  named below alone, without mixtures, deposits, plant streams and special specimens; rates and grades were turned into
  verdicts by the rules below. Each figure is a test of somebody's, whose publication the data set names.

Names in several languages, formulas, notes and descriptions are this project's own. A source that was used before, LM1, is
gone: its licence isn't its owner's. With it went {f['lm1']} verdicts that rested on it alone, and five materials (PEEK, ABS,
natural rubber, ceramic, epoxy).

## From the source's scale to a verdict

`+` resistant, `0` limited or conditional, `-` not resistant. No source gives a stated blank, so `_` does not occur.

| Source | `+` | `0` | `-` | No verdict |
|---|---|---|---|---|
| LC1 | E excellent, G good | F fair | C corroded | empty; one stray code A |
| LC2 | a temperature, see below | | NR not recommended at any temperature | ND |
| LC3 | 1 good | 2 fair | 3 poor, 4 not recommended | - |
| BU1 | 1 excellent, 2 good | 3 limited; 1 or 2 marked L (pitting) | 4 not recommended | 0; a code outside the scale |
| RS1 | 1 satisfactory | 2 fair | 3 doubtful, 4 unsatisfactory | X |
| ND1 | up to 0.1 mm a year; A, B | up to 1.0 mm a year; C | more; D | a rate that says no more than that it is above less than 0.1 |

Rules:

1. Temperatures. The scale is 20, 40, 60, 80, 100, 120 and 140 ºC. LC1 is taken at its own temperature, and a `+` at the lower
   ones down to 20 ºC too, unless LC1 itself rates a lower one worse; 21 ºC counts as 20 ºC, and lines at -18, 0, 25 and 53 ºC,
   which are not on the scale, are left out. LC3 and RS1 state no temperature; they are read as room temperature and give a
   verdict at 20 ºC only (steam at 100 ºC). Lines of LC3 and RS1 marked hot are left out. BU1 gives a verdict at 20 ºC; its
   rating at 50 ºC is taken, at 60 ºC, only where it is worse, since the list marks ratings without a stated temperature no
   longer.
2. A highest temperature T (LC2, in Fahrenheit): `+` at every temperature of the scale not above T, and nothing above it. 70 ºF
   counts as 20 ºC. "Not recommended at any temperature" gives `-` at all of them.
3. "To 158 ºF" in RS1 (70 ºC): a satisfactory rating gives `+` at 20, 40 and 60 ºC, a worse one gives its verdict at 60 ºC only.
4. Two statements for the same chemical, concentration, temperature and material: the more cautious one stands, and the
   verdict rests on those that make it. {f['two']} verdicts rest on two or more sources. Between ND1 and the others on 304, 316, C-276,
   aluminium and titanium {f['agree']} cells agree and {f['differ']} differ. Of two highest temperatures in LC2 the lower one counts (49 cases),
   and a `+` of another source above it is withheld (27 statements).
5. A verdict never gets better as the temperature rises. Where the sources taken together would say so, the higher
   temperature takes the worst verdict of the lower ones; {f['lowered']} more verdicts were lowered so this time.
6. Highest temperatures above 700 ºF in LC2 are misprints and are left out (7 values: titanium with ammonium chloride and
   with sodium hydroxide at 10, 15 and 25 %, FKM with sodium permanganate, stainless 316 with sodium sulfate, Hastelloy C-276
   with zinc sulfate). So is LC2's line of phenol, whose columns are out of place.
7. The ceramic and silicon carbide columns of LC2 hold the same value for practically every chemical, even where all else is
   unknown. They say nothing and are left out. So is BU1's shared column of ECTFE and ETFE.
8. LC3 and RS1 fill in rows they know nothing of with a set pattern that recurs over hundreds of unrelated chemicals. Such rows
   are left out: in LC3 (order FFKM, FKM-ETP, FEPM, FKM, HNBR) 1 1 - 3 3, 1 1 - 1 3, 1 1 - 2 3, 1 1 - 1 2, 1 2 - 3 3, 1 2 - 4 3
   and 1 3 - 4 3; in RS1 (its own order) 3 1 1 1 2 1 4 1 3 4 1 X 1 and 2 4 4 4 X 4 4 4 1 3 2 X 1. Rows of RS1 that rate one or two
   materials only are left out, too.
9. ND1. Materials: carbon steel (unalloyed), cast iron (grey, ductile), brass (copper-zinc without commercial bronze, silicon and
   aluminium brass), bronze (tin, phosphor), copper, nickel 200 and 201, alloys 400, 20, 600, 625, 825, C-276, duplex 2205
   (S31803), 904L, 304, 316 (not their low-carbon grades), aluminium (1xxx, 3xxx, 5xxx), unalloyed titanium, lead, zirconium
   702, tantalum. Taken are plain tests; left out are comments that tell of other substances, plant streams, pressure,
   vapours, melts, sprays, inhibitors and special specimens.
   - Pitting, crevice attack, cracking and the like lower the verdict by one. Of a range the worst end counts.
   - Up to 25 ºC and "Room" are 20 ºC. Between two steps a `+` counts at the lower one, a `0` or `-` at the higher one; two
     degrees don't matter (38, 66 and 93 ºC are round in the other scale). A `+` holds at the lower steps where no test says
     worse. "Boiling" is taken only where the boiling point of that solution is known. No temperature stated is 20 ºC,
     and a B there counts as a C.
   - Several tests of a cell: the worst, unless it is one against at least three others that agree ({f['outliers']} cells).
   - Of the same concentration only: a per cent that is no label here is left out, and so are "Moist" gases; a salt tested
     dry is no solution.
   - Figures whose two units contradict each other are left out ({f['contra']} rows).
10. A `+` that contradicts what is known of the material doesn't stand, whatever its source. What became of it is in brackets;
    `review.csv` names each cell, {f['review']} of them, and `vemora-db check --review` watches over them.
    - Stainless 304 and 316 and cast iron in hydrofluoric and hexafluorosilicic acid (`-`).
    - Acid salts are acids: sodium and potassium hydrogen sulfate on 304, aluminium, steel and cast iron (`-`), on 316 from 60 ºC
      (`0`).
    - "Pure (100 %)" is 100 %: PPS in sulfuric acid of 90 % and above and oleum (none).
    - Wet gases are acids: wet chlorine on EPDM and on metals other than titanium, tantalum and C-276 (`-`); hydrogen chloride gas,
      which is seldom bone dry, on stainless steel (`0`) and other metals (`-`).
    - PP in hydrochloric acid of 30 % and above and nitric acid of 30 % and above, from 60 ºC (`0`).
    - Titanium in phosphoric acid from 60 ºC (`0`, from 25 % `-`), in hydrochloric and sulfuric acid, aluminium chloride, fluorides,
      nitric acid above 70 %, dry methanol and dry chlorine (none); C-276 in hydrofluoric acid from 100 ºC (`-`), in liquid
      chlorine above 60 ºC (none).
    - Aluminium in alkalis, alkaline salts and solutions of amines (`-`).
    - Silicone rubber in sulfuric acid (`-`); FKM in sodium and potassium hydroxide of 20 % and above (`-`).
    - Aromatic aldehydes and their like on PVC, CPVC and CSM, chlorinated solvents on polyethylene: they swell it (`-`).
    - PVDF in amines and ketones (`-`), in anhydrous ammonia and in sodium and potassium hydroxide (none).
    - Chlorides at rest pit: aluminium and 304 in any (`0`), 316 in neutral ones above 20 ºC and in magnesium, calcium and ammonium
      chloride and sea water (`0`); acid chlorides on 304, 316 and aluminium (`-`), on 2205 (`0`); oxidising chlorides and
      hypochlorites on all of them and on alloys 20 and 825 (`-`).
    - NBR in maleic acid, whose other concentrations are `-` (`-`).
    - Copper and its alloys in ammonia, amines, acetylene, mercury, hydrogen sulfide and nitric acid (`-`), in hypochlorites, halogens and
      their waters, oxidising chlorides, sulfides and sulfurous acid (`0`); nickel and its alloys 400
      and 600 in hypochlorites and oxidising chlorides; zirconium in fluorides and oxidising chlorides; tantalum in fluorides
      and oleum; lead in acetic, formic and nitric acid and in alkalis (`-`); 2205, alloy 20 and their like in hydrochloric acid
      (`0`).
    - Carbon in perchloric acid, permanganates, dichromate and other strong oxidisers; stainless 304 in sulfuric acid of 5 to 93 %;
      a plastic above its own service limit (PVC and PE-LD 60 ºC, CPVC and PE-HD 80 ºC, PP 100 ºC); NBR in amyl acetate (none).
    - A solution between a weaker and a stronger one that are both `-` (`-`; {f['between']} cells).
    - `-` for PFA in hydrofluoric acid, where PTFE and FEP are `+` (none).
11. A weaker solution that is `-` below stronger ones that are `+` was looked at, each. They stay: {f['look']}.
12. Holes: a temperature between two others that have the same verdict takes it ({f['filled']} verdicts in {f['series']} series).

"""
    rest=s[s.index('## Concentrations'):s.index('## Thin spots')]
    rest+=f"""## Thin spots

{f['thin']}
BU1 and the seals' sources speak of 20 ºC above all. The verdicts of the highest temperatures rest on LC2 and ND1 alone,
and some of them lie above the boiling point of the chemical at normal pressure. Polyaluminium chloride and biodiesel are
missing: LC1, LC2, LC3 and ND1 don't have them.
"""
    open(path,'w').write(head+rest)
