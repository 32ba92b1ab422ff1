#include "app/LanguagePass.h"

#include "app/LanguagePositions.h"
#include "data/Connection.h"
#include "data/LanguageTable.h"
#include "data/Module1.h"
#include "platform/RuntimeFailure.h"

#include <QCoreApplication>
#include <QObject>
#include <QVariant>

namespace {

void setCaption(QObject &screen, const CaptionPosition &caption, const QString &text)
{
    auto *control = screen.findChild<QObject *>(caption.control.toString());
    if (control == nullptr) {
        return;
    }
    if (caption.place == CaptionPosition::ToolTip) {
        control->setProperty("toolTip", text);
        return;
    }
    // A menu has a title; labels, buttons and entries have a text.
    const bool titled = control->metaObject()->indexOfProperty("title") >= 0;
    control->setProperty(titled ? "title" : "text", text);
}

} // namespace

void ApplyLanguage(QObject &screen, Module1 &module)
{
    if (!module.DatabaseConnection) {
        throw RuntimeFailure(
            QCoreApplication::translate("LanguagePass", "Det er ingen forbindelse med databasen."));
    }
    readLanguage(*module.DatabaseConnection, module.CountryCode,
                 [&](quint8 position, const QString &text) {
                     for (const CaptionPosition &caption : captionPositions()) {
                         if (caption.position == position) {
                             setCaption(screen, caption, text);
                         }
                     }
                     applyWord(module.texts, position, text);
                 });
}
