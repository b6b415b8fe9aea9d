<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The K7 keyboard authors -->
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ConsoleFloatWidget</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>Schwanenhalsleuchte</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>Frontleuchte</translation>
    </message>
    <message>
        <source>LOGO lamp</source>
        <translation>Logo-Leuchte</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>LCD-Helligkeit</translation>
    </message>
    <message>
        <source>Peripheral screen parameter setting</source>
        <translation>Einstellungen der externen Bildschirme</translation>
    </message>
    <message>
        <source>Number of screens</source>
        <translation>Anzahl der Bildschirme</translation>
    </message>
    <message>
        <source>Screen resolution</source>
        <translation>Bildschirmauflösung</translation>
    </message>
    <message>
        <source>width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Set as K7 Operation Screen</source>
        <translation>Als K7-Bedienbildschirm verwenden</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Dual network settings</source>
        <translation>Einstellungen der beiden Netzwerke</translation>
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
        <translation>Einstellungsart</translation>
    </message>
    <message>
        <source>DHCP</source>
        <translation>DHCP</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>IP</source>
        <translation>IP</translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation>Subnetzmaske</translation>
    </message>
    <message>
        <source>GateWay</source>
        <translation>Gateway</translation>
    </message>
    <message>
        <source>Time setting</source>
        <translation>Zeiteinstellung</translation>
    </message>
    <message>
        <source>24Hours</source>
        <translation>24 Stunden</translation>
    </message>
    <message>
        <source>12Hours</source>
        <translation>12 Stunden</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>Neustart</translation>
    </message>
    <message>
        <source>Restart console</source>
        <translation>Konsole neu starten</translation>
    </message>
</context>
<context>
    <name>FunctionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>FUNCTION</source>
        <translation>FUNKTION</translation>
    </message>
    <message>
        <source>SAVE
 TO
DEVICE</source>
        <translation>IM
GERÄT
SICHERN</translation>
    </message>
    <message>
        <source>PGM
EDIT</source>
        <translation>PGM
EDIT</translation>
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
        <translation>KOPIE</translation>
    </message>
    <message>
        <source>MIRROR</source>
        <translation>SPIEGEL</translation>
    </message>
    <message>
        <source>SWAP</source>
        <translation>TAUSCH</translation>
    </message>
    <message>
        <source>LOCK
T-BAR</source>
        <translation>T-BAR
SPERRE</translation>
    </message>
    <message>
        <source>LOCK
PANEL</source>
        <translation>PULT
SPERRE</translation>
    </message>
</context>
<context>
    <name>InputKeyboardFrame</name>
    <message>
        <source>INPUT</source>
        <translation>EINGANG</translation>
    </message>
</context>
<context>
    <name>Korvo::ECKeyboard::K7::LogoKeyboardFrame</name>
    <message>
        <source>ETH2 settings</source>
        <translation>Einstellungen von ETH2</translation>
    </message>
    <message>
        <source>ETH1 settings</source>
        <translation>Einstellungen von ETH1</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::ConsoleFloatWidget</name>
    <message>
        <source>ShutDown</source>
        <translation>Herunterfahren</translation>
    </message>
    <message>
        <source>The default gateway is not on the same network segment (subnet) defined by IP address and subnet mask.</source>
        <translation>Das Standardgateway liegt nicht in dem Netzwerksegment (Subnetz), das IP-Adresse und Subnetzmaske festlegen.</translation>
    </message>
    <message>
        <source>Can&apos;t set the same segment, please retry.</source>
        <translation>Beide Anschlüsse dürfen nicht im selben Segment liegen. Bitte erneut versuchen.</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Fail to set network information.</source>
        <translation>Die Netzwerkeinstellungen konnten nicht gesetzt werden.</translation>
    </message>
    <message>
        <source>sure</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>loading , please wait.</source>
        <translation>Wird geladen, bitte warten.</translation>
    </message>
    <message>
        <source>Remind</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Getting network configuration timeout.</source>
        <translation>Zeitüberschreitung beim Abrufen der Netzwerkeinstellungen.</translation>
    </message>
    <message>
        <source>Are you sure to restart console?</source>
        <translation>Soll die Konsole wirklich neu gestartet werden?</translation>
    </message>
    <message>
        <source>restarting , please wait.</source>
        <translation>Wird neu gestartet, bitte warten.</translation>
    </message>
    <message>
        <source>Are you sure to shutdown console?</source>
        <translation>Soll die Konsole wirklich heruntergefahren werden?</translation>
    </message>
    <message>
        <source>shutting down , please wait.</source>
        <translation>Wird heruntergefahren, bitte warten.</translation>
    </message>
    <message>
        <source>Please select %1 operation screen.</source>
        <translation>Bitte den %1-Bedienbildschirm auswählen.</translation>
    </message>
    <message>
        <source>time updating , please wait.</source>
        <translation>Uhrzeit wird eingestellt, bitte warten.</translation>
    </message>
    <message>
        <source>Time setting failed.</source>
        <translation>Die Uhrzeit konnte nicht eingestellt werden.</translation>
    </message>
    <message>
        <source>The time setting was successful.</source>
        <translation>Die Uhrzeit wurde eingestellt.</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>Bildschirm %1</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::FloatWidgetWidthButton</name>
    <message>
        <source>Show settings</source>
        <translation>Einstellungen zeigen</translation>
    </message>
    <message>
        <source>Hide settings</source>
        <translation>Einstellungen verbergen</translation>
    </message>
</context>
<context>
    <name>LayerKeyboardFrame</name>
    <message>
        <source>LAYER</source>
        <translation>LAYER</translation>
    </message>
    <message>
        <source>LAYER EDIT</source>
        <translation>LAYER EDIT</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>LEEREN</translation>
    </message>
    <message>
        <source>TOP</source>
        <translation>GANZ
VORN</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>ALLE
LEEREN</translation>
    </message>
    <message>
        <source>BOTTOM</source>
        <translation>GANZ
HINTEN</translation>
    </message>
</context>
<context>
    <name>LogoKeyboardFrame</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>Schwanenhals</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>LCD-Helligkeit</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>Frontleuchte</translation>
    </message>
    <message>
        <source>ETH1:</source>
        <translation>ETH1:</translation>
    </message>
    <message>
        <source>ETH2:</source>
        <translation>ETH2:</translation>
    </message>
    <message>
        <source>DVI:</source>
        <translation>DVI:</translation>
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
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>NUMBER</source>
        <translation>ZAHL</translation>
    </message>
    <message>
        <source>BACK</source>
        <translation>ZURÜCK</translation>
    </message>
    <message>
        <source>ENTER</source>
        <translation>ENTER</translation>
    </message>
</context>
<context>
    <name>PresetKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>PRESET</source>
        <translation>PRESET</translation>
    </message>
    <message>
        <source>PRESET EDIT</source>
        <translation>PRESET EDIT</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>LEEREN</translation>
    </message>
    <message>
        <source>SAVE</source>
        <translation>SICHERN</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>ALLE
LEEREN</translation>
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
        <translation>LEINWAND</translation>
    </message>
    <message>
        <source>FREEZE
 PGM</source>
        <translation>PGM
EINFRIEREN</translation>
    </message>
    <message>
        <source>MATCH
 PGM </source>
        <translation>AN PGM
ANGLEICHEN</translation>
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
        <translation>Rahmen</translation>
    </message>
</context>
<context>
    <name>TransitionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>MIX</source>
        <translation>MIX</translation>
    </message>
    <message>
        <source>WIPE</source>
        <translation>WIPE</translation>
    </message>
    <message>
        <source>TIME+</source>
        <translation>ZEIT+</translation>
    </message>
    <message>
        <source>TIME-</source>
        <translation>ZEIT-</translation>
    </message>
</context>
</TS>
