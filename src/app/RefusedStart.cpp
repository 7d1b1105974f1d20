// SPDX-License-Identifier: MIT
#include "app/RefusedStart.h"

#include "app/Language.h"
#include "settings/ZrToolXmlClass.h"

#include <QCoreApplication>

namespace vexa {

platform::RefusalWords refusalWords() {
    ZrToolXmlClass::ZrXmlRead();
    Language language;
    language.change(ZrToolXmlClass::Language);
    const auto guide = [](const char *text) { return QCoreApplication::translate("PrivacyWindow", text); };
    return {guide("由于系统隐私要求，请授权以下权限"), guide("输入监听"), guide("确定")};
}

} // namespace vexa
