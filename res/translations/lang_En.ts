<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>About</name>
    <message>
        <source>开机自启动</source>
        <translation>Auto Start</translation>
    </message>
    <message>
        <source>语言</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>简体中文</source>
        <translation>Simplified Chinese</translation>
    </message>
    <message>
        <source>繁体中文</source>
        <translation>Traditional Chinese</translation>
    </message>
    <message>
        <source>英语</source>
        <translation>English</translation>
    </message>
    <message>
        <source>版本 1.0</source>
        <translation>Version 2.0.0.0</translation>
    </message>
    <message>
        <source>启动</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>关于</source>
        <translation>About</translation>
    </message>
    <message>
        <source>请访问Vexa官网以获得更多支持</source>
        <translation>Please visit Vexa website to get more support</translation>
    </message>
    <message>
        <source>版权所有 © 2019-2021 维克萨科技有限公司</source>
        <translation>Copyright © 2019-2021 Vexa Technology Co., Ltd.</translation>
    </message>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>AboutButton2</name>
    <message>
        <source></source>
        <translation></translation>
    </message>
</context>
<context>
    <name>AboutButton3</name>
    <message>
        <source></source>
        <translation></translation>
    </message>
</context>
<context>
    <name>blackBoardform</name>
    <message>
        <source>黑板</source>
        <translation>Black Board</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>BlackWindow</name>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
    <message>
        <source>:/icon-lock-hover@1080p.png</source>
        <translation></translation>
    </message>
    <message>
        <source>:/icon-lock-normal@1080p.png</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>Key1Press</name>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>Key1Window</name>
    <message>
        <source>切换画笔颜色</source>
        <translation>Color Switch</translation>
    </message>
    <message>
        <source>开启/关闭批注</source>
        <translation>Annotation on/off</translation>
    </message>
    <message>
        <source>单击</source>
        <translation>Click</translation>
    </message>
    <message>
        <source>长按</source>
        <translation>Long Press</translation>
    </message>
    <message>
        <source>颜色设置</source>
        <translation>Color setting</translation>
    </message>
</context>
<context>
    <name>Key2Window</name>
    <message>
        <source>无操作</source>
        <translation>No Action</translation>
    </message>
    <message>
        <source>PPT放映：开始/结束</source>
        <translation>PPT Slide on/off</translation>
    </message>
    <message>
        <source>上一页</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>播放器：暂停/播放</source>
        <translation>Pause/Play</translation>
    </message>
    <message>
        <source>屏幕截屏</source>
        <translation>Screenshot</translation>
    </message>
    <message>
        <source>黑板</source>
        <translation>Black Board</translation>
    </message>
    <message>
        <source>单击</source>
        <translation>Click</translation>
    </message>
    <message>
        <source>长按</source>
        <translation>Long Press</translation>
    </message>
</context>
<context>
    <name>Key3Window</name>
    <message>
        <source>无操作</source>
        <translation>No Action</translation>
    </message>
    <message>
        <source>PPT放映：开始/结束</source>
        <translation>PPT Slide on/off</translation>
    </message>
    <message>
        <source>下一页</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>播放器：暂停/播放</source>
        <translation>Pause/Play</translation>
    </message>
    <message>
        <source>屏幕截屏</source>
        <translation>Screenshot</translation>
    </message>
    <message>
        <source>黑板</source>
        <translation>Black Board</translation>
    </message>
    <message>
        <source>单击</source>
        <translation>Click</translation>
    </message>
    <message>
        <source>长按</source>
        <translation>Long Press</translation>
    </message>
</context>
<context>
    <name>Key4LongPress</name>
    <message>
        <source>放大镜</source>
        <translation>Magnifier</translation>
    </message>
    <message>
        <source>数字激光点</source>
        <translation>Laser</translation>
    </message>
    <message>
        <source>聚光灯</source>
        <translation>Spotlight</translation>
    </message>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>Key4Window</name>
    <message>
        <source>无操作</source>
        <translation>No Action</translation>
    </message>
    <message>
        <source>PPT放映：开始/结束</source>
        <translation>PPT Slide on/off</translation>
    </message>
    <message>
        <source>播放器：暂停/播放</source>
        <translation>Pause/Play</translation>
    </message>
    <message>
        <source>屏幕截屏</source>
        <translation>Screenshot</translation>
    </message>
    <message>
        <source>黑板</source>
        <translation>Black Board</translation>
    </message>
    <message>
        <source>放大镜</source>
        <translation>Magnifier</translation>
    </message>
    <message>
        <source>数字激光点</source>
        <translation>Laser</translation>
    </message>
    <message>
        <source>聚光灯</source>
        <translation>Spotlight</translation>
    </message>
    <message>
        <source>单击</source>
        <translation>Click</translation>
    </message>
    <message>
        <source>长按</source>
        <translation>Long Press</translation>
    </message>
    <message>
        <source>放大镜设置</source>
        <translation>Magnifier Setting</translation>
    </message>
    <message>
        <source>数字激光笔设置</source>
        <translation>Laser Setting</translation>
    </message>
    <message>
        <source>聚光灯设置</source>
        <translation>Spotlight Setting</translation>
    </message>
</context>
<context>
    <name>KeySetButton2</name>
    <message>
        <source></source>
        <translation></translation>
    </message>
</context>
<context>
    <name>KeySetButton2_update</name>
    <message>
        <source></source>
        <translation></translation>
    </message>
</context>
<context>
    <name>KeySetting2</name>
    <message>
        <source>无操作</source>
        <translation>No Action</translation>
    </message>
    <message>
        <source>PPT放映：开始/结束</source>
        <translation>PPT Slide on/off</translation>
    </message>
    <message>
        <source>播放器：暂停/播放</source>
        <translation>Pause/Play</translation>
    </message>
    <message>
        <source>屏幕截屏</source>
        <translation>Screenshot</translation>
    </message>
    <message>
        <source>黑屏</source>
        <translation>Black Screen</translation>
    </message>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>LightPen</name>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>LightPenSet</name>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>LightpenSetWindow</name>
    <message>
        <source>颜色</source>
        <translation>Color</translation>
    </message>
    <message>
        <source>大小</source>
        <translation>Size</translation>
    </message>
</context>
<context>
    <name>Magnifie</name>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>MagnifierSet</name>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>MagnifierSetWindow</name>
    <message>
        <source>颜色</source>
        <translation>Color</translation>
    </message>
    <message>
        <source>大小</source>
        <translation>Size</translation>
    </message>
</context>
<context>
    <name>MainKeySetting</name>
    <message>
        <source>无操作</source>
        <translation>No Action</translation>
    </message>
    <message>
        <source>PPT放映：开始/结束</source>
        <translation>PPT Slide on/off</translation>
    </message>
    <message>
        <source>上一页</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>下一页</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>播放器：暂停/播放</source>
        <translation>Pause/Play</translation>
    </message>
    <message>
        <source>屏幕截屏</source>
        <translation>Screenshot</translation>
    </message>
    <message>
        <source>黑屏</source>
        <translation>Black Screen</translation>
    </message>
    <message>
        <source>放大镜</source>
        <translation>Magnifier</translation>
    </message>
    <message>
        <source>数字激光点</source>
        <translation>Laser</translation>
    </message>
    <message>
        <source>聚光灯</source>
        <translation>Spotlight</translation>
    </message>
    <message>
        <source>批注：开始/退出</source>
        <translation>Annotation on/off</translation>
    </message>
    <message>
        <source>画笔颜色切换</source>
        <translation>Color Setting</translation>
    </message>
    <message>
        <source>Key1单击</source>
        <translation>Click Key1</translation>
    </message>
    <message>
        <source>Key1 长按</source>
        <translation>Long Press Key1</translation>
    </message>
    <message>
        <source>Key2 单击</source>
        <translation>Click Key2</translation>
    </message>
    <message>
        <source>Key2 长按</source>
        <translation>Long Press Key2</translation>
    </message>
    <message>
        <source>Key3 单击</source>
        <translation>Click Key3</translation>
    </message>
    <message>
        <source>Key3 长按</source>
        <translation>Long Press Key3</translation>
    </message>
    <message>
        <source>Key4 单击</source>
        <translation>Click Key4</translation>
    </message>
    <message>
        <source>Key4单击</source>
        <translation>Click Key4</translation>
    </message>
    <message>
        <source>Key4 长按</source>
        <translation>Long Press Key4</translation>
    </message>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
    <message>
        <source>qrc:/MainKeySetButton.qml</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>无操作</source>
        <translation>No Action</translation>
    </message>
    <message>
        <source>PPT放映：开始/结束</source>
        <translation>PPT Slide on/off</translation>
    </message>
    <message>
        <source>上一页</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>下一页</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>播放器：暂停/播放</source>
        <translation>Pause/Play</translation>
    </message>
    <message>
        <source>屏幕截屏</source>
        <translation>Screenshot</translation>
    </message>
    <message>
        <source>黑板</source>
        <translation>Black Board</translation>
    </message>
    <message>
        <source>放大镜</source>
        <translation>Magnifier</translation>
    </message>
    <message>
        <source>数字激光点</source>
        <translation>Laser</translation>
    </message>
    <message>
        <source>聚光灯</source>
        <translation>Spotlight</translation>
    </message>
    <message>
        <source>切换画笔颜色</source>
        <translation>Color Switch</translation>
    </message>
    <message>
        <source>开启/关闭批注</source>
        <translation>Annotation on/off</translation>
    </message>
    <message>
        <source>单击</source>
        <translation>Click</translation>
    </message>
    <message>
        <source>长按</source>
        <translation>Long Press</translation>
    </message>
    <message>
        <source>截屏已保存</source>
        <translation>Screenshot saved!</translation>
    </message>
    <message>
        <source>Vexa Orbilo Setting</source>
        <translation>Vexa Orbilo Setting</translation>
    </message>
    <message>
        <source>MainWindow</source>
        <translation></translation>
    </message>
    <message>
        <source>Key 1</source>
        <translation></translation>
    </message>
    <message>
        <source>Key 2</source>
        <translation></translation>
    </message>
    <message>
        <source>Key 3</source>
        <translation></translation>
    </message>
    <message>
        <source>Key 4</source>
        <translation></translation>
    </message>
    <message>
        <source>VexaOrbilo</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>PizhuForm</name>
    <message>
        <source>批注模式</source>
        <translation>Annotation Mode</translation>
    </message>
    <message>
        <source>1</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>PizhuSetPenColor</name>
    <message>
        <source>颜色</source>
        <translation>Color</translation>
    </message>
    <message>
        <source>画笔粗细</source>
        <translation>Penwidth</translation>
    </message>
</context>
<context>
    <name>PizhuSetPenSize</name>
    <message>
        <source>画笔粗细:</source>
        <translation>Penwidth</translation>
    </message>
</context>
<context>
    <name>PrivacyprivilegesWindow</name>
    <message>
        <source>确定</source>
        <translation>Confirm</translation>
    </message>
</context>
<context>
    <name>PrivacyWindow</name>
    <message>
        <source>由于系统隐私要求，请授权以下权限</source>
        <translation>Due to system privacy requirements, please authorize the following permissions:</translation>
    </message>
    <message>
        <source>辅助功能</source>
        <translation>Auxiliary Function;</translation>
    </message>
    <message>
        <source>输入监听</source>
        <translation>Input Monitoring;</translation>
    </message>
    <message>
        <source>屏幕录制</source>
        <translation>Screen Recording.</translation>
    </message>
    <message>
        <source>完全磁盘访问权限</source>
        <translation>Full Disk Access;</translation>
    </message>
    <message>
        <source>重新安装需重新授权</source>
        <translation>*Re-installation requires re-authorization.</translation>
    </message>
    <message>
        <source>下次不再提示</source>
        <translation>Never ask me again</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>Confirm</translation>
    </message>
</context>
<context>
    <name>PromptWindow</name>
    <message>
        <source>Vexa Orbilo Setting</source>
        <translation>Vexa Orbilo Setting</translation>
    </message>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>promptwindow2</name>
    <message>
        <source>颜色</source>
        <translation>Color</translation>
    </message>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>SetWindow</name>
    <message>
        <source>设置</source>
        <translation>Setting</translation>
    </message>
    <message>
        <source>开机自启动</source>
        <translation>Auto Start</translation>
    </message>
    <message>
        <source>语言</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>简体中文</source>
        <translation>Simplified Chinese</translation>
    </message>
    <message>
        <source>繁体中文</source>
        <translation>Traditional Chinese</translation>
    </message>
    <message>
        <source>英语</source>
        <translation>English</translation>
    </message>
    <message>
        <source>版本</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>2.0.0.0</source>
        <translation>2.1.0.210527</translation>
    </message>
    <message>
        <source>请访问Vexa官网以获得更多支持</source>
        <translation>Please visit Vexa website to get more support</translation>
    </message>
    <message>
        <source>版权所有 © 2019-2021 维克萨科技有限公司</source>
        <translation>Copyright © 2019-2021 Vexa Technology Co., Ltd.</translation>
    </message>
</context>
<context>
    <name>Spolight2</name>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>SportLightSet</name>
    <message>
        <source>Form</source>
        <translation></translation>
    </message>
</context>
<context>
    <name>SportLightSetWindow</name>
    <message>
        <source>大小</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>透明度</source>
        <translation>Brightness</translation>
    </message>
</context>
</TS>
