<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The K7 keyboard authors -->
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ConsoleFloatWidget</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>Lampe col de cygne</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Luminosité</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>Lampe de façade</translation>
    </message>
    <message>
        <source>LOGO lamp</source>
        <translation>Lampe du logo</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>Luminosité LCD</translation>
    </message>
    <message>
        <source>Peripheral screen parameter setting</source>
        <translation>Réglages des écrans périphériques</translation>
    </message>
    <message>
        <source>Number of screens</source>
        <translation>Nombre d’écrans</translation>
    </message>
    <message>
        <source>Screen resolution</source>
        <translation>Résolution d’écran</translation>
    </message>
    <message>
        <source>width</source>
        <translation>largeur</translation>
    </message>
    <message>
        <source>height</source>
        <translation>hauteur</translation>
    </message>
    <message>
        <source>Set as K7 Operation Screen</source>
        <translation>Utiliser comme écran de commande K7</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>Dual network settings</source>
        <translation>Réglages du double réseau</translation>
    </message>
    <message>
        <source>ETH2</source>
        <translation>ETH2</translation>
    </message>
    <message>
        <source>ETH1</source>
        <translation>ETH1</translation>
    </message>
    <message>
        <source>Setup mode</source>
        <translation>Mode de réglage</translation>
    </message>
    <message>
        <source>DHCP</source>
        <translation>DHCP</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuel</translation>
    </message>
    <message>
        <source>IP</source>
        <translation>IP</translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation>Masque de sous-réseau</translation>
    </message>
    <message>
        <source>GateWay</source>
        <translation>Passerelle</translation>
    </message>
    <message>
        <source>Time setting</source>
        <translation>Réglage de l’heure</translation>
    </message>
    <message>
        <source>24Hours</source>
        <translation>24 heures</translation>
    </message>
    <message>
        <source>12Hours</source>
        <translation>12 heures</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>Redémarrer</translation>
    </message>
    <message>
        <source>Restart console</source>
        <translation>Redémarrer la console</translation>
    </message>
</context>
<context>
    <name>FunctionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Cadre</translation>
    </message>
    <message>
        <source>FUNCTION</source>
        <translation>FONCTION</translation>
    </message>
    <message>
        <source>SAVE
 TO
DEVICE</source>
        <translation>ENREG.
SUR
UNITÉ</translation>
    </message>
    <message>
        <source>PGM
EDIT</source>
        <translation>ÉDITER
PGM</translation>
    </message>
    <message>
        <source>MVR</source>
        <translation>MVR</translation>
    </message>
    <message>
        <source>DSK</source>
        <translation>DSK</translation>
    </message>
    <message>
        <source>COPY</source>
        <translation>COPIER</translation>
    </message>
    <message>
        <source>MIRROR</source>
        <translation>MIROIR</translation>
    </message>
    <message>
        <source>SWAP</source>
        <translation>PERMU-
TER</translation>
    </message>
    <message>
        <source>LOCK
T-BAR</source>
        <translation>VERROU
T-BAR</translation>
    </message>
    <message>
        <source>LOCK
PANEL</source>
        <translation>VERROU
PUPITRE</translation>
    </message>
</context>
<context>
    <name>InputKeyboardFrame</name>
    <message>
        <source>INPUT</source>
        <translation>ENTRÉE</translation>
    </message>
</context>
<context>
    <name>Korvo::ECKeyboard::K7::LogoKeyboardFrame</name>
    <message>
        <source>ETH2 settings</source>
        <translation>Réglages de ETH2</translation>
    </message>
    <message>
        <source>ETH1 settings</source>
        <translation>Réglages de ETH1</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::ConsoleFloatWidget</name>
    <message>
        <source>ShutDown</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>The default gateway is not on the same network segment (subnet) defined by IP address and subnet mask.</source>
        <translation>La passerelle par défaut n’est pas dans le segment réseau (sous-réseau) défini par l’adresse IP et le masque de sous-réseau.</translation>
    </message>
    <message>
        <source>Can&apos;t set the same segment, please retry.</source>
        <translation>Les deux ports ne peuvent pas être sur le même segment. Veuillez réessayer.</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Fail to set network information.</source>
        <translation>Échec du réglage du réseau.</translation>
    </message>
    <message>
        <source>sure</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>loading , please wait.</source>
        <translation>Chargement en cours, veuillez patienter.</translation>
    </message>
    <message>
        <source>Remind</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Getting network configuration timeout.</source>
        <translation>Délai dépassé lors de la lecture des réglages du réseau.</translation>
    </message>
    <message>
        <source>Are you sure to restart console?</source>
        <translation>Voulez-vous vraiment redémarrer la console ?</translation>
    </message>
    <message>
        <source>restarting , please wait.</source>
        <translation>Redémarrage en cours, veuillez patienter.</translation>
    </message>
    <message>
        <source>Are you sure to shutdown console?</source>
        <translation>Voulez-vous vraiment arrêter la console ?</translation>
    </message>
    <message>
        <source>shutting down , please wait.</source>
        <translation>Arrêt en cours, veuillez patienter.</translation>
    </message>
    <message>
        <source>Please select %1 operation screen.</source>
        <translation>Veuillez choisir l’écran de commande %1.</translation>
    </message>
    <message>
        <source>time updating , please wait.</source>
        <translation>Réglage de l’heure en cours, veuillez patienter.</translation>
    </message>
    <message>
        <source>Time setting failed.</source>
        <translation>Échec du réglage de l’heure.</translation>
    </message>
    <message>
        <source>The time setting was successful.</source>
        <translation>L’heure a été réglée.</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>Écran %1</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::FloatWidgetWidthButton</name>
    <message>
        <source>Show settings</source>
        <translation>Afficher les réglages</translation>
    </message>
    <message>
        <source>Hide settings</source>
        <translation>Masquer les réglages</translation>
    </message>
</context>
<context>
    <name>LayerKeyboardFrame</name>
    <message>
        <source>LAYER</source>
        <translation>COUCHE</translation>
    </message>
    <message>
        <source>LAYER EDIT</source>
        <translation>ÉDITION</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>VIDER</translation>
    </message>
    <message>
        <source>TOP</source>
        <translation>AVANT
PLAN</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>TOUT
VIDER</translation>
    </message>
    <message>
        <source>BOTTOM</source>
        <translation>ARRIÈRE
PLAN</translation>
    </message>
</context>
<context>
    <name>LogoKeyboardFrame</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>Col de cygne</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>Luminosité LCD</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>Lampe de façade</translation>
    </message>
    <message>
        <source>ETH1:</source>
        <translation>ETH1 :</translation>
    </message>
    <message>
        <source>ETH2:</source>
        <translation>ETH2 :</translation>
    </message>
    <message>
        <source>DVI:</source>
        <translation>DVI :</translation>
    </message>
    <message>
        <source>IN 1</source>
        <translation>IN 1</translation>
    </message>
    <message>
        <source>IN 2</source>
        <translation>IN 2</translation>
    </message>
</context>
<context>
    <name>NumberKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Cadre</translation>
    </message>
    <message>
        <source>NUMBER</source>
        <translation>NOMBRE</translation>
    </message>
    <message>
        <source>BACK</source>
        <translation>RETOUR</translation>
    </message>
    <message>
        <source>ENTER</source>
        <translation>VALIDER</translation>
    </message>
</context>
<context>
    <name>PresetKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Cadre</translation>
    </message>
    <message>
        <source>PRESET</source>
        <translation>MÉMOIRE</translation>
    </message>
    <message>
        <source>PRESET EDIT</source>
        <translation>ÉDITION</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>VIDER</translation>
    </message>
    <message>
        <source>SAVE</source>
        <translation>ENREG.</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>TOUT
VIDER</translation>
    </message>
    <message>
        <source>CUT</source>
        <translation>CUT</translation>
    </message>
    <message>
        <source>TAKE</source>
        <translation>TAKE</translation>
    </message>
</context>
<context>
    <name>ScreenKeyboardFrame</name>
    <message>
        <source>SCREEN</source>
        <translation>ÉCRAN</translation>
    </message>
    <message>
        <source>FREEZE
 PGM</source>
        <translation>FIGER
PGM</translation>
    </message>
    <message>
        <source>MATCH
 PGM </source>
        <translation>ALIGNER
SUR PGM</translation>
    </message>
    <message>
        <source>FTB</source>
        <translation>FTB</translation>
    </message>
</context>
<context>
    <name>TBarKeyboadFrame</name>
    <message>
        <source>Frame</source>
        <translation>Cadre</translation>
    </message>
</context>
<context>
    <name>TransitionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Cadre</translation>
    </message>
    <message>
        <source>MIX</source>
        <translation>MIX</translation>
    </message>
    <message>
        <source>WIPE</source>
        <translation>VOLET</translation>
    </message>
    <message>
        <source>TIME+</source>
        <translation>DURÉE+</translation>
    </message>
    <message>
        <source>TIME-</source>
        <translation>DURÉE-</translation>
    </message>
</context>
</TS>
