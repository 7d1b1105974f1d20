// SPDX-License-Identifier: MIT
//
// panel-pictures FOLDER: draws every view of the panel and of the guide, in the three languages, into FOLDER.
// With QT_SCALE_FACTOR=2 the pictures are as on a screen of twice the density and their names end with @2x.
#include "app/Language.h"
#include "settings/Choices.h"
#include "settings/ViewMessage.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QQuickItem>
#include <QQuickWidget>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdio>

using vexa::HeldToolChoice;
using vexa::ViewMessage;

namespace {

constexpr std::array<const char *, 3> languages = {"Cn", "Tw", "En"};

/// Whether pictures or views are still on their way.
bool loading(const QObject *root) {
    constexpr int underWay = 2; // of pictures and of loaders alike
    const QList<QObject *> objects = root->findChildren<QObject *>();
    return std::any_of(objects.begin(), objects.end(), [](const QObject *object) {
        return (object->inherits("QQuickImage") || object->inherits("QQuickLoader")) &&
               object->property("status").toInt() == underWay;
    });
}

/// Lets the view handle what was changed, and draw it.
void settle(const QQuickWidget &view) {
    do {
        QEventLoop loop;
        QTimer::singleShot(50, &loop, &QEventLoop::quit);
        loop.exec();
    } while (loading(view.rootObject()));
}

void push(QObject *root, ViewMessage message, int value) {
    QMetaObject::invokeMethod(root, "setvalue", Q_ARG(QVariant, int(message)), Q_ARG(QVariant, value),
                              Q_ARG(QVariant, 0));
}

class Album {
public:
    Album(const QString &folder, const QString &language) : m_folder(folder), m_language(language) {}

    bool add(const QQuickWidget &view, const QString &name) {
        settle(view);
        const QString density = view.devicePixelRatioF() > 1 ? QStringLiteral("@2x") : QString();
        const QString path = m_folder.filePath(name + '-' + m_language + density + QStringLiteral(".png"));
        if (view.grabFramebuffer().save(path))
            return true;
        std::fprintf(stderr, "panel-pictures: cannot write %s\n", qPrintable(path));
        return false;
    }

private:
    QDir m_folder;
    QString m_language;
};

/// The values a settled user might have: every control shows something.
void fill(QObject *root, int language) {
    const std::array<int, 16> values = {132, 183, 890, 177, 22, 13, 2, 3, 5, 1, 1, 3, 4, 0, language, 1};
    for (std::size_t i = 0; i < values.size(); ++i)
        push(root, ViewMessage(static_cast<int>(vexa::firstSettingMessage) + static_cast<int>(i)),
             values.at(i));
}

bool drawPanel(Album &album, int language) {
    QQuickWidget view(QUrl(QStringLiteral("qrc:/MainWindow.qml")));
    view.show();
    QQuickItem *root = view.rootObject();
    if (root == nullptr)
        return false;
    fill(root, language);

    struct Scene {
        const char *name;
        const char *button; ///< which button opens the view, or null
        HeldToolChoice tool;
    };
    const std::array<Scene, 8> scenes = {{{"overview", nullptr, HeldToolChoice::Spotlight},
                                          {"key1", "key1Button", HeldToolChoice::Spotlight},
                                          {"key2", "key2Button", HeldToolChoice::Spotlight},
                                          {"key3", "key3Button", HeldToolChoice::Spotlight},
                                          {"key4-spotlight", "key4Button", HeldToolChoice::Spotlight},
                                          {"key4-magnifier", "key4Button", HeldToolChoice::Magnifier},
                                          {"key4-laser", "key4Button", HeldToolChoice::Laser},
                                          {"settings", "setButton", HeldToolChoice::Spotlight}}};
    for (const Scene &scene : scenes) {
        push(root, ViewMessage::Key4P, static_cast<int>(scene.tool));
        if (scene.button != nullptr)
            root->findChild<QObject *>(QLatin1String(scene.button))->setProperty("checked", true);
        if (!album.add(view, QLatin1String(scene.name)))
            return false;
    }
    return true;
}

bool drawGuide(Album &album) {
    QQuickWidget view;
    view.setClearColor(Qt::transparent);
    view.setSource(QUrl(QStringLiteral("qrc:/PrivacyWindow.qml")));
    view.show();
    return album.add(view, QStringLiteral("guide"));
}

} // namespace

int main(int argc, char *argv[]) {
    qputenv("QT_FONT_DPI", "72");
    QApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QFile::decodeName(argv[1]))) {
        std::fprintf(stderr, "panel-pictures FOLDER: draws the views into FOLDER\n");
        return 2;
    }
    vexa::Language language;
    for (std::size_t i = 0; i < languages.size(); ++i) {
        language.change(static_cast<int>(i));
        Album album(QFile::decodeName(argv[1]), QLatin1String(languages.at(i)));
        if (!drawPanel(album, static_cast<int>(i)) || !drawGuide(album))
            return 1;
    }
    return 0;
}
