<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The K7 keyboard authors -->
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>ConsoleFloatWidget</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>Lámpara flexible</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Brillo</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>Luz frontal</translation>
    </message>
    <message>
        <source>LOGO lamp</source>
        <translation>Luz del logotipo</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>Brillo del LCD</translation>
    </message>
    <message>
        <source>Peripheral screen parameter setting</source>
        <translation>Ajustes de las pantallas periféricas</translation>
    </message>
    <message>
        <source>Number of screens</source>
        <translation>Número de pantallas</translation>
    </message>
    <message>
        <source>Screen resolution</source>
        <translation>Resolución de pantalla</translation>
    </message>
    <message>
        <source>width</source>
        <translation>ancho</translation>
    </message>
    <message>
        <source>height</source>
        <translation>alto</translation>
    </message>
    <message>
        <source>Set as K7 Operation Screen</source>
        <translation>Usar como pantalla de control del K7</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Aplicar</translation>
    </message>
    <message>
        <source>Dual network settings</source>
        <translation>Ajustes de la red doble</translation>
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
        <translation>Modo de ajuste</translation>
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
        <translation>Máscara de subred</translation>
    </message>
    <message>
        <source>GateWay</source>
        <translation>Puerta de enlace</translation>
    </message>
    <message>
        <source>Time setting</source>
        <translation>Ajuste de la hora</translation>
    </message>
    <message>
        <source>24Hours</source>
        <translation>24 horas</translation>
    </message>
    <message>
        <source>12Hours</source>
        <translation>12 horas</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Fecha</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>Reiniciar</translation>
    </message>
    <message>
        <source>Restart console</source>
        <translation>Reiniciar la consola</translation>
    </message>
</context>
<context>
    <name>FunctionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Marco</translation>
    </message>
    <message>
        <source>FUNCTION</source>
        <translation>FUNCIÓN</translation>
    </message>
    <message>
        <source>SAVE
 TO
DEVICE</source>
        <translation>GRABAR
EN
EQUIPO</translation>
    </message>
    <message>
        <source>PGM
EDIT</source>
        <translation>EDITAR
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
        <translation>COPIAR</translation>
    </message>
    <message>
        <source>MIRROR</source>
        <translation>ESPEJO</translation>
    </message>
    <message>
        <source>SWAP</source>
        <translation>INTER-
CAMBIO</translation>
    </message>
    <message>
        <source>LOCK
T-BAR</source>
        <translation>BLOQ.
T-BAR</translation>
    </message>
    <message>
        <source>LOCK
PANEL</source>
        <translation>BLOQ.
PANEL</translation>
    </message>
</context>
<context>
    <name>InputKeyboardFrame</name>
    <message>
        <source>INPUT</source>
        <translation>ENTRADA</translation>
    </message>
</context>
<context>
    <name>Korvo::ECKeyboard::K7::LogoKeyboardFrame</name>
    <message>
        <source>ETH2 settings</source>
        <translation>Ajustes de ETH2</translation>
    </message>
    <message>
        <source>ETH1 settings</source>
        <translation>Ajustes de ETH1</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::ConsoleFloatWidget</name>
    <message>
        <source>ShutDown</source>
        <translation>Apagar</translation>
    </message>
    <message>
        <source>The default gateway is not on the same network segment (subnet) defined by IP address and subnet mask.</source>
        <translation>La puerta de enlace predeterminada no está en el segmento de red (subred) que definen la dirección IP y la máscara de subred.</translation>
    </message>
    <message>
        <source>Can&apos;t set the same segment, please retry.</source>
        <translation>Los dos puertos no pueden estar en el mismo segmento. Inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>Fail to set network information.</source>
        <translation>No se ha podido ajustar la red.</translation>
    </message>
    <message>
        <source>sure</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>loading , please wait.</source>
        <translation>Cargando, espere por favor.</translation>
    </message>
    <message>
        <source>Remind</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>Getting network configuration timeout.</source>
        <translation>Se ha agotado el tiempo de espera al obtener los ajustes de red.</translation>
    </message>
    <message>
        <source>Are you sure to restart console?</source>
        <translation>¿Seguro que desea reiniciar la consola?</translation>
    </message>
    <message>
        <source>restarting , please wait.</source>
        <translation>Reiniciando, espere por favor.</translation>
    </message>
    <message>
        <source>Are you sure to shutdown console?</source>
        <translation>¿Seguro que desea apagar la consola?</translation>
    </message>
    <message>
        <source>shutting down , please wait.</source>
        <translation>Apagando, espere por favor.</translation>
    </message>
    <message>
        <source>Please select %1 operation screen.</source>
        <translation>Seleccione la pantalla de control del %1.</translation>
    </message>
    <message>
        <source>time updating , please wait.</source>
        <translation>Ajustando la hora, espere por favor.</translation>
    </message>
    <message>
        <source>Time setting failed.</source>
        <translation>No se ha podido ajustar la hora.</translation>
    </message>
    <message>
        <source>The time setting was successful.</source>
        <translation>Se ha ajustado la hora.</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>Pantalla %1</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::FloatWidgetWidthButton</name>
    <message>
        <source>Show settings</source>
        <translation>Mostrar los ajustes</translation>
    </message>
    <message>
        <source>Hide settings</source>
        <translation>Ocultar los ajustes</translation>
    </message>
</context>
<context>
    <name>LayerKeyboardFrame</name>
    <message>
        <source>LAYER</source>
        <translation>CAPA</translation>
    </message>
    <message>
        <source>LAYER EDIT</source>
        <translation>EDIT. CAPA</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>BORRAR</translation>
    </message>
    <message>
        <source>TOP</source>
        <translation>AL
FRENTE</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>BORRAR
TODO</translation>
    </message>
    <message>
        <source>BOTTOM</source>
        <translation>AL
FONDO</translation>
    </message>
</context>
<context>
    <name>LogoKeyboardFrame</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>Lámpara flexible</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>Brillo del LCD</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>Luz frontal</translation>
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
        <translation>Marco</translation>
    </message>
    <message>
        <source>NUMBER</source>
        <translation>NÚMERO</translation>
    </message>
    <message>
        <source>BACK</source>
        <translation>ATRÁS</translation>
    </message>
    <message>
        <source>ENTER</source>
        <translation>INTRO</translation>
    </message>
</context>
<context>
    <name>PresetKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Marco</translation>
    </message>
    <message>
        <source>PRESET</source>
        <translation>PREAJUSTE</translation>
    </message>
    <message>
        <source>PRESET EDIT</source>
        <translation>EDIT. PREAJUSTE</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>BORRAR</translation>
    </message>
    <message>
        <source>SAVE</source>
        <translation>GRABAR</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>BORRAR
TODO</translation>
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
        <translation>PANTALLA</translation>
    </message>
    <message>
        <source>FREEZE
 PGM</source>
        <translation>CONGELAR
PGM</translation>
    </message>
    <message>
        <source>MATCH
 PGM </source>
        <translation>IGUALAR
A PGM</translation>
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
        <translation>Marco</translation>
    </message>
</context>
<context>
    <name>TransitionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>Marco</translation>
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
        <translation>TIEMPO
+</translation>
    </message>
    <message>
        <source>TIME-</source>
        <translation>TIEMPO
-</translation>
    </message>
</context>
</TS>
