<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The K7 keyboard authors -->
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ConsoleFloatWidget</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>鹅颈灯</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>亮度</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>前面板灯</translation>
    </message>
    <message>
        <source>LOGO lamp</source>
        <translation>LOGO灯</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>LCD亮度</translation>
    </message>
    <message>
        <source>Peripheral screen parameter setting</source>
        <translation>外接屏幕参数设置</translation>
    </message>
    <message>
        <source>Number of screens</source>
        <translation>屏幕数量</translation>
    </message>
    <message>
        <source>Screen resolution</source>
        <translation>屏幕分辨率</translation>
    </message>
    <message>
        <source>width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Set as K7 Operation Screen</source>
        <translation>设为K7操作屏</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Dual network settings</source>
        <translation>双网口设置</translation>
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
        <translation>设置方式</translation>
    </message>
    <message>
        <source>DHCP</source>
        <translation>DHCP</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>手动</translation>
    </message>
    <message>
        <source>IP</source>
        <translation>IP</translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation>子网掩码</translation>
    </message>
    <message>
        <source>GateWay</source>
        <translation>网关</translation>
    </message>
    <message>
        <source>Time setting</source>
        <translation>时间设置</translation>
    </message>
    <message>
        <source>24Hours</source>
        <translation>24小时制</translation>
    </message>
    <message>
        <source>12Hours</source>
        <translation>12小时制</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>重启</translation>
    </message>
    <message>
        <source>Restart console</source>
        <translation>重启控制台</translation>
    </message>
</context>
<context>
    <name>FunctionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>框架</translation>
    </message>
    <message>
        <source>FUNCTION</source>
        <translation>功能</translation>
    </message>
    <message>
        <source>SAVE
 TO
DEVICE</source>
        <translation>保存
到设备</translation>
    </message>
    <message>
        <source>PGM
EDIT</source>
        <translation>PGM
编辑</translation>
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
        <translation>复制</translation>
    </message>
    <message>
        <source>MIRROR</source>
        <translation>镜像</translation>
    </message>
    <message>
        <source>SWAP</source>
        <translation>交换</translation>
    </message>
    <message>
        <source>LOCK
T-BAR</source>
        <translation>锁定
T型杆</translation>
    </message>
    <message>
        <source>LOCK
PANEL</source>
        <translation>锁定
面板</translation>
    </message>
</context>
<context>
    <name>InputKeyboardFrame</name>
    <message>
        <source>INPUT</source>
        <translation>输入</translation>
    </message>
</context>
<context>
    <name>Korvo::ECKeyboard::K7::LogoKeyboardFrame</name>
    <message>
        <source>ETH2 settings</source>
        <translation>ETH2 设置</translation>
    </message>
    <message>
        <source>ETH1 settings</source>
        <translation>ETH1 设置</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::ConsoleFloatWidget</name>
    <message>
        <source>ShutDown</source>
        <translation>关机</translation>
    </message>
    <message>
        <source>The default gateway is not on the same network segment (subnet) defined by IP address and subnet mask.</source>
        <translation>默认网关不在由IP地址和子网掩码定义的同一网段（子网）内。</translation>
    </message>
    <message>
        <source>Can&apos;t set the same segment, please retry.</source>
        <translation>不能设置为同一网段，请重试。</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>Fail to set network information.</source>
        <translation>网络信息设置失败。</translation>
    </message>
    <message>
        <source>sure</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>loading , please wait.</source>
        <translation>正在加载，请稍候。</translation>
    </message>
    <message>
        <source>Remind</source>
        <translation>提醒</translation>
    </message>
    <message>
        <source>Getting network configuration timeout.</source>
        <translation>获取网络配置超时。</translation>
    </message>
    <message>
        <source>Are you sure to restart console?</source>
        <translation>确定要重启控制台吗？</translation>
    </message>
    <message>
        <source>restarting , please wait.</source>
        <translation>正在重启，请稍候。</translation>
    </message>
    <message>
        <source>Are you sure to shutdown console?</source>
        <translation>确定要关闭控制台吗？</translation>
    </message>
    <message>
        <source>shutting down , please wait.</source>
        <translation>正在关机，请稍候。</translation>
    </message>
    <message>
        <source>Please select %1 operation screen.</source>
        <translation>请选择%1操作屏。</translation>
    </message>
    <message>
        <source>time updating , please wait.</source>
        <translation>正在更新时间，请稍候。</translation>
    </message>
    <message>
        <source>Time setting failed.</source>
        <translation>时间设置失败。</translation>
    </message>
    <message>
        <source>The time setting was successful.</source>
        <translation>时间设置成功。</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>屏幕 %1</translation>
    </message>
</context>
<context>
    <name>Korvo::Internal::FloatWidgetWidthButton</name>
    <message>
        <source>Show settings</source>
        <translation>显示设置</translation>
    </message>
    <message>
        <source>Hide settings</source>
        <translation>隐藏设置</translation>
    </message>
</context>
<context>
    <name>LayerKeyboardFrame</name>
    <message>
        <source>LAYER</source>
        <translation>图层</translation>
    </message>
    <message>
        <source>LAYER EDIT</source>
        <translation>图层编辑</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>TOP</source>
        <translation>置顶</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>全部
清除</translation>
    </message>
    <message>
        <source>BOTTOM</source>
        <translation>置底</translation>
    </message>
</context>
<context>
    <name>LogoKeyboardFrame</name>
    <message>
        <source>Gooseneck lamp</source>
        <translation>鹅颈灯</translation>
    </message>
    <message>
        <source>LCD brightness</source>
        <translation>LCD亮度</translation>
    </message>
    <message>
        <source>Front panel lamp</source>
        <translation>前面板灯</translation>
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
        <translation>框架</translation>
    </message>
    <message>
        <source>NUMBER</source>
        <translation>数字</translation>
    </message>
    <message>
        <source>BACK</source>
        <translation>退格</translation>
    </message>
    <message>
        <source>ENTER</source>
        <translation>确认</translation>
    </message>
</context>
<context>
    <name>PresetKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>框架</translation>
    </message>
    <message>
        <source>PRESET</source>
        <translation>预设</translation>
    </message>
    <message>
        <source>PRESET EDIT</source>
        <translation>预设编辑</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>SAVE</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>CLEAR
 ALL</source>
        <translation>全部
清除</translation>
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
        <translation>屏幕</translation>
    </message>
    <message>
        <source>FREEZE
 PGM</source>
        <translation>冻结
PGM</translation>
    </message>
    <message>
        <source>MATCH
 PGM </source>
        <translation>匹配
PGM</translation>
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
        <translation>框架</translation>
    </message>
</context>
<context>
    <name>TransitionKeyboardFrame</name>
    <message>
        <source>Frame</source>
        <translation>框架</translation>
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
        <translation>时间+</translation>
    </message>
    <message>
        <source>TIME-</source>
        <translation>时间-</translation>
    </message>
</context>
</TS>
