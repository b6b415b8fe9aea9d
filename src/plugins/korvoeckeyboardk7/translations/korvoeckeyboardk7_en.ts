<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The K7 keyboard authors -->
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ConsoleFloatWidget</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>Gooseneck lamp</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Brightness</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>Front panel lamp</translation>
    </message>
    <message>
        <source>LOGO lamp</source>
        <translation>LOGO lamp</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>LCD brightness</translation>
    </message>
    <message>
        <source>Peripheral screen parameter setting</source>
        <translation>Peripheral screen parameter setting</translation>
    </message>
    <message>
        <source>Number of screens</source>
        <translation>Number of screens</translation>
    </message>
    <message>
        <source>Screen resolution</source>
        <translation>Screen resolution</translation>
    </message>
    <message>
        <source>width</source>
        <translation>width</translation>
    </message>
    <message>
        <source>height</source>
        <translation>height</translation>
    </message>
    <message>
        <source>Set as K7 Operation Screen</source>
        <translation>Set as K7 Operation Screen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Apply</translation>
    </message>
    <message>
        <source>Dual network settings</source>
        <translation>Dual network settings</translation>
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
        <translation>Setup mode</translation>
    </message>
    <message>
        <source>DHCP</source>
        <translation>DHCP</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manual</translation>
    </message>
    <message>
        <source>IP</source>
        <translation>IP</translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation>Subnet mask</translation>
    </message>
    <message>
        <source>GateWay</source>
        <translation>GateWay</translation>
    </message>
    <message>
        <source>Time setting</source>
        <translation>Time setting</translation>
    </message>
    <message>
        <source>24Hours</source>
        <translation>24Hours</translation>
    </message>
    <message>
        <source>12Hours</source>
        <translation>12Hours</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>Restart</translation>
    </message>
    <message>
        <source>Restart console</source>
        <translation>Restart console</translation>
    </message>
</context>
<context>
    <name>FunctionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Frame</translation>
    </message>
    <message>
        <source>FUNCTION</source>
        <translation>FUNCTION</translation>
    </message>
    <message>
        <source>SAVE
 TO
DEVICE</source>
        <translation>SAVE
 TO
DEVICE</translation>
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
        <translation>COPY</translation>
    </message>
    <message>
        <source>MIRROR</source>
        <translation>MIRROR</translation>
    </message>
    <message>
        <source>SWAP</source>
        <translation>SWAP</translation>
    </message>
    <message>
        <source>LOCK
T-BAR</source>
        <translation>LOCK
T-BAR</translation>
    </message>
    <message>
        <source>LOCK
PANEL</source>
        <translation>LOCK
PANEL</translation>
    </message>
</context>
<context>
    <name>InputKeyboardFrame</name>
    <message>
        <source>INPUT</source>
        <translation>INPUT</translation>
    </message>
</context>
<context>
    <name>Korvo::ECKeyboard::K7::LogoKeyboardFrame</name>
    <message>
        <source>ETH2 settings</source>
        <translation>ETH2 settings</translation>
    </message>
    <message>
        <source>ETH1 settings</source>
        <translation>ETH1 settings</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::ConsoleFloatWidget</name>
    <message>
        <source>ShutDown</source>
        <translation>ShutDown</translation>
    </message>
    <message>
        <source>The default gateway is not on the same network segment (subnet) defined by IP address and subnet mask.</source>
        <translation>The default gateway is not on the same network segment (subnet) defined by IP address and subnet mask.</translation>
    </message>
    <message>
        <source>Can&apos;t set the same segment, please retry.</source>
        <translation>Can&apos;t set the same segment, please retry.</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>Tip</translation>
    </message>
    <message>
        <source>Fail to set network information.</source>
        <translation>Fail to set network information.</translation>
    </message>
    <message>
        <source>sure</source>
        <translation>sure</translation>
    </message>
    <message>
        <source>loading , please wait.</source>
        <translation>loading , please wait.</translation>
    </message>
    <message>
        <source>Remind</source>
        <translation>Remind</translation>
    </message>
    <message>
        <source>Getting network configuration timeout.</source>
        <translation>Getting network configuration timeout.</translation>
    </message>
    <message>
        <source>Are you sure to restart console?</source>
        <translation>Are you sure to restart console?</translation>
    </message>
    <message>
        <source>restarting , please wait.</source>
        <translation>restarting , please wait.</translation>
    </message>
    <message>
        <source>Are you sure to shutdown console?</source>
        <translation>Are you sure to shutdown console?</translation>
    </message>
    <message>
        <source>shutting down , please wait.</source>
        <translation>shutting down , please wait.</translation>
    </message>
    <message>
        <source>Please select %1 operation screen.</source>
        <translation>Please select %1 operation screen.</translation>
    </message>
    <message>
        <source>time updating , please wait.</source>
        <translation>time updating , please wait.</translation>
    </message>
    <message>
        <source>Time setting failed.</source>
        <translation>Time setting failed.</translation>
    </message>
    <message>
        <source>The time setting was successful.</source>
        <translation>The time setting was successful.</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>Screen %1</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::FloatWidgetWidthButton</name>
    <message>
        <source>Show settings</source>
        <translation>Show settings</translation>
    </message>
    <message>
        <source>Hide settings</source>
        <translation>Hide settings</translation>
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
        <translation>CLEAR</translation>
    </message>
    <message>
        <source>TOP</source>
        <translation>TOP</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>CLEAR
 ALL</translation>
    </message>
    <message>
        <source>BOTTOM</source>
        <translation>BOTTOM</translation>
    </message>
</context>
<context>
    <name>LogoKeyboardFrame</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>Gooseneck lamp</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>LCD brightness</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>Front panel lamp</translation>
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
        <translation>Frame</translation>
    </message>
    <message>
        <source>NUMBER</source>
        <translation>NUMBER</translation>
    </message>
    <message>
        <source>BACK</source>
        <translation>BACK</translation>
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
        <translation>Frame</translation>
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
        <translation>CLEAR</translation>
    </message>
    <message>
        <source>SAVE</source>
        <translation>SAVE</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>CLEAR
 ALL</translation>
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
        <translation>SCREEN</translation>
    </message>
    <message>
        <source>FREEZE
 PGM</source>
        <translation>FREEZE
 PGM</translation>
    </message>
    <message>
        <source>MATCH
 PGM </source>
        <translation>MATCH
 PGM </translation>
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
        <translation>Frame</translation>
    </message>
</context>
<context>
    <name>TransitionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Frame</translation>
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
        <translation>TIME+</translation>
    </message>
    <message>
        <source>TIME-</source>
        <translation>TIME-</translation>
    </message>
</context>
</TS>
