# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# New chemicals, names and the names that people type.
import csv, re
NEW=[ # EN, formula, SE, GE, nicks SE/EN/GE, notes SE/EN/GE, default concentration, LC3 (FFKM,FKM-ETP,FEPM,FKM,HNBR)
('Calcium hypochlorite','Ca(ClO)2','Kalciumhypoklorit','Calciumhypochlorit','Klorkalk, Poolklor','Bleaching powder, Pool shock','Chlorkalk',
 'Starkt oxiderande. Ger gropfrätning på rostfritt stål och klorgas med syra.','Strongly oxidising. Causes pitting of stainless steel, and gives off chlorine with acid.','Stark oxidierend. Verursacht Lochfraß an nichtrostendem Stahl und entwickelt mit Säure Chlor.',1,(1,1,1,1,2)),
('Chloroacetic acid','ClCH2COOH','Klorättiksyra','Chloressigsäure','Monoklorättiksyra, MCA','Monochloroacetic acid, MCA','Monochloressigsäure, MCA',
 'Starkt frätande syra. Löser eller sväller många plaster och gummin.','Strongly corrosive acid. Dissolves or swells many plastics and rubbers.','Stark ätzende Säure. Löst oder quillt viele Kunststoffe und Elastomere.',1,(2,2,2,4,4)),
('Acrylonitrile','C3H3N','Akrylnitril','Acrylnitril','Vinylcyanid','Vinyl cyanide','Vinylcyanid',
 'Giftig och brandfarlig. Sväller de flesta gummin.','Toxic and flammable. Swells most rubbers.','Giftig und entzündbar. Quillt die meisten Elastomere.',53,(1,4,2,4,4)),
('Ethylene oxide','C2H4O','Etylenoxid','Ethylenoxid','Oxiran, EtO','Oxirane, EtO','Oxiran, EtO',
 'Mycket reaktiv gas. Angriper de flesta gummin, polymeriserar med rost.','Very reactive gas. Attacks most rubbers, and polymerises with rust.','Sehr reaktives Gas. Greift die meisten Elastomere an, polymerisiert mit Rost.',55,(1,4,4,4,4)),
('Butane','C4H10','Butan','Butan','Tändargas','Lighter gas','Feuerzeuggas',
 'Brandfarlig gas, handlas även vätskeformig.','Flammable gas, also handled as a liquid.','Entzündbares Gas, wird auch flüssig gehandhabt.',55,(1,1,2,1,1)),
('Oxygen','O2','Syrgas','Sauerstoff','Syre','Oxygen gas','Sauerstoffgas',
 'Underhåller brand. Allt som kommer i beröring med gasen måste vara fritt från olja och fett och godkänt för syrgas.','Feeds fire. All that touches the gas must be free of oil and grease and approved for oxygen.','Brandfördernd. Alles, was mit dem Gas in Berührung kommt, muss öl- und fettfrei und für Sauerstoff zugelassen sein.',55,(1,1,4,1,2)),
('Carbon monoxide','CO','Kolmonoxid','Kohlenmonoxid','Koloxid','Carbonic oxide','Kohlenoxid',
 'Giftig, brandfarlig gas. Bildar flyktiga karbonyler med järn och nickel under tryck.','Toxic, flammable gas. Forms volatile carbonyls with iron and nickel under pressure.','Giftiges, entzündbares Gas. Bildet unter Druck mit Eisen und Nickel flüchtige Carbonyle.',55,(1,1,1,1,1)),
('Iodine','I2','Jod','Iod','Jodtinktur','Tincture of iodine','Jod, Jodtinktur',
 'Torr jod angriper få metaller, fuktig de flesta.','Dry iodine attacks few metals, moist iodine most.','Trockenes Iod greift wenige Metalle an, feuchtes die meisten.',1,(1,1,1,1,1)),
('Copper(II) chloride','CuCl2','Koppar(II)klorid','Kupfer(II)-chlorid','Kopparklorid','Cupric chloride, Copper chloride','Kupferchlorid',
 'Sur och oxiderande lösning. Ger gropfrätning på nästan alla metaller.','Acid and oxidising solution. Causes pitting of nearly all metals.','Saure und oxidierende Lösung. Verursacht Lochfraß an fast allen Metallen.',1,(1,1,1,1,1)),
('Butyric acid','C3H7COOH','Smörsyra','Buttersäure','Butansyra','Butanoic acid','Butansäure',
 'Organisk syra med stark lukt.','Organic acid with a strong smell.','Organische Säure mit starkem Geruch.',53,(1,2,1,4,1)),
('Ethylenediamine','C2H8N2','Etylendiamin','Ethylendiamin','EDA, 1,2-Diaminoetan','EDA, 1,2-Diaminoethane','EDA, 1,2-Diaminoethan',
 'Stark organisk bas. Angriper koppar och dess legeringar.','Strong organic base. Attacks copper and its alloys.','Starke organische Base. Greift Kupfer und seine Legierungen an.',53,(2,4,2,4,4)),
('Black liquor','','Svartlut','Schwarzlauge','Sulfatlut','Kraft black liquor','Sulfatablauge',
 'Alkalisk, sulfidhaltig kokvätska från massaindustrin.','Alkaline cooking liquor of pulp mills, with sulfides.','Alkalische, sulfidhaltige Kochlauge der Zellstoffindustrie.',54,(4,1,2,1,2)),
('Hydraulic oil','','Hydraulolja','Hydrauliköl','Hydraulvätska','Hydraulic fluid','Hydraulikflüssigkeit',
 'Mineraloljebaserad. Vätskor av estrar eller glykol beter sig på annat sätt.','Based on mineral oil. Fluids of esters or glycol behave otherwise.','Auf Mineralölbasis. Flüssigkeiten aus Estern oder Glykol verhalten sich anders.',54,(1,1,None,1,1)),
('Steam','H2O','Vattenånga','Wasserdampf','Ånga','Water vapour','Dampf',
 'Verdikten gäller 100 ºC. Temperatur och tryck avgör.','The verdicts hold at 100 ºC. Temperature and pressure decide.','Die Angaben gelten bei 100 ºC. Temperatur und Druck entscheiden.',55,(2,1,None,2,4)),
]
NEW=[n[:12]+n[12:] for n in NEW]
FIRST=313
IDS={n[0]:FIRST+i for i,n in enumerate(NEW)}
DEFAULT={n[0]:n[10] for n in NEW}
LC3={n[0]:n[11] for n in NEW}
ADD={ # ID: (SE, EN, GE) further names
 2:('','Fuming sulfuric',''),3:('Murarsyra','Spirits of salt',''),4:('','',''),15:('','Sulphurous acid',''),19:('','Chlorosulphonic acid',''),20:('','Sulphamic acid',''),21:('Aqua regia','',''),22:('Etansyra','',''),24:('','',''),46:('','Benzenesulphonic acid',''),
 14:('','Hydrofluorosilicic acid, FSA',''),38:('','',''),48:('Propplösare','Drain cleaner, Sodium lye','Rohrreiniger, Abflussreiniger'),50:('Salmiakspiritus','Household ammonia',''),52:('Kalkvatten','Lime water','Kalkwasser'),
 55:('','Aluminum hydroxide','Tonerde'),56:('','Aluminum sulfate, Aluminium sulphate',''),57:('','Aluminum chloride',''),58:('','Potassium aluminum sulfate, Potassium aluminium sulphate',''),59:('','Aluminum nitrate',''),60:('','Aluminum fluoride',''),61:('','Aluminum acetate',''),
 63:('','Ammonium sulphate',''),67:('','Ammonium persulphate',''),69:('','Ammonium sulphide',''),64:('Gödselsalt','Fertiliser saltpetre','Ammonsalpeter'),75:('','Barium sulphate',''),76:('','Barium sulphide',''),77:('','De-icing salt','Streusalz'),80:('','Calcium sulphate, Plaster of Paris',''),81:('','Calcium bisulphite',''),
 82:('Koppar(II)sulfat','Copper sulphate, Cupric sulfate','Kupfer(II)-sulfat'),85:('','Ferric sulphate',''),87:('','Ferrous sulphate, Copperas',''),91:('','Magnesium sulphate',''),97:('','Nickel sulphate',''),111:('','Potassium sulphate',''),112:('','Potassium bisulphate',''),117:('','Silver sulphate',''),
 121:('','Sodium bisulphate',''),122:('','Sodium bisulphite, Sodium metabisulfite solution',''),120:('Bakpulver','',''),126:('Kristallsoda','Washing crystals','Waschsoda'),128:('','Table salt','Speisesalz'),133:('','Sodium hydrosulphite',''),137:('Klorin','Household bleach, Liquid chlorine bleach','Chlorreiniger'),149:('','Sodium sulphate',''),150:('','Sodium sulphide',''),151:('','Sodium sulphite',''),152:('','Sodium thiosulphate, Antichlor',''),156:('','Zinc sulphate',''),
 94:('Kvicksilver(II)klorid','',''),95:('Kvicksilver(II)cyanid','Mercury(II) cyanide',''),164:('Rödsprit, T-sprit, Alkohol','Alcohol, Methylated spirits, Surgical spirit','Spiritus, Brennspiritus, Alkohol'),165:('','Rubbing alcohol',''),178:('Nagellacksborttagning','Nail varnish remover','Nagellackentferner'),192:('','',''),198:('Celluslov','Cellosolve',''),199:('','Methyl cellosolve',''),
 232:('','Carbon disulphide',''),234:('','Dimethyl sulphoxide',''),258:('','Hydrogen sulphide, Sulphuretted hydrogen',''),259:('','Sulphur dioxide',''),255:('','',''),260:('','Petrol spirit',''),243:('AdBlue-ämne','AdBlue base','AdBlue-Grundstoff'),279:('Balsamterpentin','Gum turpentine','Balsamterpentin'),281:('','White gas oil',''),290:('','Spirit vinegar','Haushaltsessig'),301:('','Sulphite liquor',''),158:('Blekvatten','Hair bleach','Bleichwasser'),177:('','Vegetable glycerin',''),296:('Grönsåpa','Soft soap','Schmierseife'),302:('','Quicksilver',''),257:('Torris','Dry ice','Trockeneis'),303:('','','Brauchwasser'),
 163:('Metylsprit','',''),166:('','',''),174:('','Coolant','Kühlerfrostschutz'),210:('','',''),240:('','',''),28:('','Sour salt','E330'),13:('','Boracic acid',''),35:('','',''),1:('','Sulphuric acid',''),
}
ADD.update({28:('E330','Sour salt, E330','E330'),46:('Benzensulfonsyra','Benzenesulphonic acid','Benzensulfonsäure'),57:('Aluminiumtriklorid','Aluminum chloride','Aluminiumtrichlorid'),59:('Aluminiumtrinitrat','Aluminum nitrate','Aluminiumtrinitrat'),60:('Aluminiumtrifluorid','Aluminum fluoride','Aluminiumtrifluorid'),63:('Diammoniumsulfat','Ammonium sulphate','Diammoniumsulfat'),69:('Diammoniumsulfid','Ammonium sulphide','Diammoniumsulfid'),76:('Svavelbarium','Barium sulphide','Schwefelbarium'),95:('Kvicksilver(II)cyanid','Mercury(II) cyanide','Cyanquecksilber'),97:('Nickel(II)sulfat','Nickel sulphate','Nickel(II)-sulfat'),111:('Dikaliumsulfat','Potassium sulphate','Dikaliumsulfat'),117:('Silver(I)sulfat','Silver sulphate','Silber(I)-sulfat'),150:('Svavelnatrium','Sodium sulphide','Schwefelnatrium'),151:('Dinatriumsulfit','Sodium sulphite','Dinatriumsulfit'),259:('Svavelsyrlighetsanhydrid','Sulphur dioxide','Schwefligsäureanhydrid'),302:('Hydrargyrum','Quicksilver','Hydrargyrum')})
DROP={243,198,281}   # brands and doubtful words
GE={279:'Terpentinöl'}
NICKGE={279:'Balsamterpentinöl',19:'Chlorosulfonsäure'}
NICKSE={22:'Isättika, Etansyra',19:'Klorosulfonsyra'}
ANHYDROUS=True
def rewrite(path,out):
    rows=list(csv.DictReader(open(path))); head=list(rows[0])
    for r in rows:
        i=int(r['ID'])
        if ANHYDROUS: r['Formula']=re.sub('·[0-9]*H2O$','',r['Formula'])
        if i in GE: r['NameGE']=GE[i]
        if i in NICKGE: r['NickNameGE']=NICKGE[i]
        if i in NICKSE: r['NickNameSE']=NICKSE[i]
        if i in(46,81,122):
            r['NoteSE']=re.sub('[Ss]vavelsyra(n)?','H2SO4',r['NoteSE']); r['NoteGE']=r['NoteGE'].replace('Schwefelsäure','H2SO4')
        if i in ADD and i not in DROP:
            for lang,more in zip(('SE','EN','GE'),ADD[i]):
                if i==279 and lang=='GE' : continue
                if more and not (i==22 and lang=='SE'):
                    have=[x.strip() for x in r['NickName'+lang].split(',') if x.strip()]
                    for m in more.split(','):
                        m=m.strip()
                        if m.lower() not in [h.lower() for h in have]: have.append(m)
                    r['NickName'+lang]=', '.join(have)
    for n in NEW:
        rows.append(dict(zip(head,[str(IDS[n[0]]),n[1],'auto' if n[1] else '',n[2],n[0],n[3],n[4],n[5],n[6],n[7],n[8],n[9],'0','-1'])))
    # names of all languages or of none
    bad=[r['ID'] for r in rows if len({bool(r['NickName'+l]) for l in('SE','EN','GE')})>1]
    return rows,head,bad
