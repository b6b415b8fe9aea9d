<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The K7 keyboard authors -->
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>ConsoleFloatWidget</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>グースネックランプ</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>明るさ</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>フロントパネルランプ</translation>
    </message>
    <message>
        <source>LOGO lamp</source>
        <translation>ロゴランプ</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>LCDの明るさ</translation>
    </message>
    <message>
        <source>Peripheral screen parameter setting</source>
        <translation>外部画面のパラメーター設定</translation>
    </message>
    <message>
        <source>Number of screens</source>
        <translation>画面の数</translation>
    </message>
    <message>
        <source>Screen resolution</source>
        <translation>画面の解像度</translation>
    </message>
    <message>
        <source>width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>height</source>
        <translation>高さ</translation>
    </message>
    <message>
        <source>Set as K7 Operation Screen</source>
        <translation>K7の操作画面に設定</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>適用</translation>
    </message>
    <message>
        <source>Dual network settings</source>
        <translation>デュアルネットワーク設定</translation>
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
        <translation>設定方法</translation>
    </message>
    <message>
        <source>DHCP</source>
        <translation>DHCP</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>手動</translation>
    </message>
    <message>
        <source>IP</source>
        <translation>IP</translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation>サブネットマスク</translation>
    </message>
    <message>
        <source>GateWay</source>
        <translation>ゲートウェイ</translation>
    </message>
    <message>
        <source>Time setting</source>
        <translation>時刻設定</translation>
    </message>
    <message>
        <source>24Hours</source>
        <translation>24時間制</translation>
    </message>
    <message>
        <source>12Hours</source>
        <translation>12時間制</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>再起動</translation>
    </message>
    <message>
        <source>Restart console</source>
        <translation>コンソールを再起動</translation>
    </message>
</context>
<context>
    <name>FunctionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>フレーム</translation>
    </message>
    <message>
        <source>FUNCTION</source>
        <translation>機能</translation>
    </message>
    <message>
        <source>SAVE
 TO
DEVICE</source>
        <translation>本体に
保存</translation>
    </message>
    <message>
        <source>PGM
EDIT</source>
        <translation>PGM
編集</translation>
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
        <translation>コピー</translation>
    </message>
    <message>
        <source>MIRROR</source>
        <translation>ミラー</translation>
    </message>
    <message>
        <source>SWAP</source>
        <translation>入れ替え</translation>
    </message>
    <message>
        <source>LOCK
T-BAR</source>
        <translation>Tバー
ロック</translation>
    </message>
    <message>
        <source>LOCK
PANEL</source>
        <translation>パネル
ロック</translation>
    </message>
</context>
<context>
    <name>InputKeyboardFrame</name>
    <message>
        <source>INPUT</source>
        <translation>入力</translation>
    </message>
</context>
<context>
    <name>Korvo::ECKeyboard::K7::LogoKeyboardFrame</name>
    <message>
        <source>ETH2 settings</source>
        <translation>ETH2の設定</translation>
    </message>
    <message>
        <source>ETH1 settings</source>
        <translation>ETH1の設定</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::ConsoleFloatWidget</name>
    <message>
        <source>ShutDown</source>
        <translation>シャットダウン</translation>
    </message>
    <message>
        <source>The default gateway is not on the same network segment (subnet) defined by IP address and subnet mask.</source>
        <translation>デフォルトゲートウェイが、IPアドレスとサブネットマスクで決まるネットワークセグメント（サブネット）にありません。</translation>
    </message>
    <message>
        <source>Can&apos;t set the same segment, please retry.</source>
        <translation>同じセグメントには設定できません。もう一度設定してください。</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>ヒント</translation>
    </message>
    <message>
        <source>Fail to set network information.</source>
        <translation>ネットワーク情報を設定できませんでした。</translation>
    </message>
    <message>
        <source>sure</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>loading , please wait.</source>
        <translation>読み込み中です。お待ちください。</translation>
    </message>
    <message>
        <source>Remind</source>
        <translation>お知らせ</translation>
    </message>
    <message>
        <source>Getting network configuration timeout.</source>
        <translation>ネットワーク設定の取得がタイムアウトしました。</translation>
    </message>
    <message>
        <source>Are you sure to restart console?</source>
        <translation>コンソールを再起動しますか？</translation>
    </message>
    <message>
        <source>restarting , please wait.</source>
        <translation>再起動中です。お待ちください。</translation>
    </message>
    <message>
        <source>Are you sure to shutdown console?</source>
        <translation>コンソールをシャットダウンしますか？</translation>
    </message>
    <message>
        <source>shutting down , please wait.</source>
        <translation>シャットダウン中です。お待ちください。</translation>
    </message>
    <message>
        <source>Please select %1 operation screen.</source>
        <translation>%1の操作画面を選択してください。</translation>
    </message>
    <message>
        <source>time updating , please wait.</source>
        <translation>時刻を更新中です。お待ちください。</translation>
    </message>
    <message>
        <source>Time setting failed.</source>
        <translation>時刻を設定できませんでした。</translation>
    </message>
    <message>
        <source>The time setting was successful.</source>
        <translation>時刻を設定しました。</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>画面 %1</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::FloatWidgetWidthButton</name>
    <message>
        <source>Show settings</source>
        <translation>設定を表示</translation>
    </message>
    <message>
        <source>Hide settings</source>
        <translation>設定を隠す</translation>
    </message>
</context>
<context>
    <name>LayerKeyboardFrame</name>
    <message>
        <source>LAYER</source>
        <translation>レイヤー</translation>
    </message>
    <message>
        <source>LAYER EDIT</source>
        <translation>レイヤー編集</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>クリア</translation>
    </message>
    <message>
        <source>TOP</source>
        <translation>最前面</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>すべて
クリア</translation>
    </message>
    <message>
        <source>BOTTOM</source>
        <translation>最背面</translation>
    </message>
</context>
<context>
    <name>LogoKeyboardFrame</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>グースネック</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>LCDの明るさ</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>フロントパネルランプ</translation>
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
        <translation>フレーム</translation>
    </message>
    <message>
        <source>NUMBER</source>
        <translation>数字</translation>
    </message>
    <message>
        <source>BACK</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>ENTER</source>
        <translation>確定</translation>
    </message>
</context>
<context>
    <name>PresetKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>フレーム</translation>
    </message>
    <message>
        <source>PRESET</source>
        <translation>プリセット</translation>
    </message>
    <message>
        <source>PRESET EDIT</source>
        <translation>プリセット編集</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>クリア</translation>
    </message>
    <message>
        <source>SAVE</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>すべて
クリア</translation>
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
        <translation>スクリーン</translation>
    </message>
    <message>
        <source>FREEZE
 PGM</source>
        <translation>PGM
フリーズ</translation>
    </message>
    <message>
        <source>MATCH
 PGM </source>
        <translation>PGMに
合わせる</translation>
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
        <translation>フレーム</translation>
    </message>
</context>
<context>
    <name>TransitionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>フレーム</translation>
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
        <translation>時間+</translation>
    </message>
    <message>
        <source>TIME-</source>
        <translation>時間-</translation>
    </message>
</context>
</TS>
