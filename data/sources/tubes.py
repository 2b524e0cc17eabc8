# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
"""LC4: pump tubes of a thermoplastic elastomer and of polyurethane after 28 days at 23 ºC."""
import os
import re

from base import read
from corrosion import normal

MATERIALS = {'flex_a_prene': 'TPE', 'flex_a_thane': 'PU'}
VERDICTS = {'E': '+', 'G': '+', 'F': '0', 'U': '-'}
SOLUTION, PURE = 2, 53

# The chart's name -> English name here, where they differ by more than spelling.
ALIASES = {
    'Alum': 'Potassium aluminium sulfate', 'Aluminum Potassium Sulfate': 'Potassium aluminium sulfate',
    'Ammonia, Anhydrous Liquid': 'Ammonia, anhydrous',
    'Ammonium Hydroxide': 'Ammonia solution', 'Borax': 'Sodium borate',
    'Bromine, Anhydrous Liquid': 'Bromine', 'Butyl Alcohol': '1-Butanol', 'Cellosolve': '2-Ethoxyethanol',
    'Calcium Bisulfite': 'Calcium hydrogen sulfite', 'Copper Sulfate Pentahydrate': 'Copper sulfate',
    'Cresol (m, o, or p)': 'Cresol', 'Cupric Chloride': 'Copper(II) chloride', 'Cupric Sulfate': 'Copper sulfate',
    'Detergent Solutions': 'Detergent solution', 'Dimethylsulfoxide': 'Dimethyl sulfoxide',
    'Dioxane': '1,4-Dioxane', 'Ethyl Alcohol (Ethanol)': 'Ethanol', 'Ethylene Diamine': 'Ethylenediamine',
    'Fluosilicic Acid': 'Hexafluorosilicic acid', 'Gasoline, Automotive': 'Petrol',
    'Glycerol, (Glycerin)': 'Glycerol', 'Isobutyl Alcohol': 'Isobutanol', 'Isopropyl Alcohol': 'Isopropanol',
    'Isopropyl Ether': 'Diisopropyl ether', 'Methane Gas': 'Methane', 'Methyl Alcohol (Methanol)': 'Methanol',
    'Mineral Spirits': 'White spirit',
    'Polyaluminum Chloride (PAC) in w': 'Polyaluminium chloride', 'Propyl Alcohol (Propanol)': '1-Propanol',
    'Silicone Oils': 'Silicone oil', 'Soap Solutions': 'Soap solution',
    'Sodium Bicarbonate': 'Sodium hydrogen carbonate', 'Sodium Bisulfate': 'Sodium hydrogen sulfate',
    'Sodium Bisulfite': 'Sodium hydrogen sulfite', 'Sulfur Dioxide, Gas Dry': 'Sulfur dioxide',
    'Water, Deionized': 'Deionised water', 'Water, Distilled': 'Distilled water'}


def verdicts(data):
    """Yields (chemical, concentration, material, verdict). A per cent that is no label here is left out."""
    names = {normal(n): i for n, i in data.id.items()}
    usual = data.usual()
    for line in read(f'{os.path.dirname(os.path.abspath(__file__))}/tubes.csv'):
        match = re.fullmatch(r'(.*?), ?(?:Glacial, )?([\d.]+)%(?: in w.*)?', line['chemical'])
        name, percent = match.groups() if match else (line['chemical'], None)
        chemical = names.get(normal(ALIASES.get(name, name)))
        if chemical is None:
            continue
        if name.endswith(' in w'):
            concentration = SOLUTION
        elif percent is None:
            concentration = usual[chemical]
        else:
            concentration = PURE if percent == '100' else data.label.get(f'{float(percent):g} % (w/w)')
        if concentration is None:
            continue
        for column, material in MATERIALS.items():
            if line[column] in VERDICTS:
                yield chemical, concentration, material, VERDICTS[line[column]]
