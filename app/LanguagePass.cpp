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

// Dynamic properties of a control beside the caption's own: what was designed, and what a language
// has put in its place.
const QByteArray kDesigned = "designed ";
const QByteArray kGiven = "given ";

const char *propertyOf(const QObject &control, const CaptionPosition &caption)
{
    if (caption.place == CaptionPosition::ToolTip) {
        return "toolTip";
    }
    // A menu has a title; labels, buttons and entries have a text.
    return control.metaObject()->indexOfProperty("title") >= 0 ? "title" : "text";
}

/// An empty text is the designed one.
void setCaption(QObject &screen, const CaptionPosition &caption, const QString &text)
{
    auto *control = screen.findChild<QObject *>(caption.control.toString());
    if (control == nullptr) {
        return;
    }
    const char *property = propertyOf(*control, caption);
    const QByteArray designed = kDesigned + QByteArray(property);
    const QByteArray given = kGiven + QByteArray(property);
    const QVariant present = control->property(property);
    if (text.isEmpty()) {
        // What the program has put there since is no caption of another language.
        if (present == control->property(given)) {
            control->setProperty(property, control->property(designed));
        }
        return;
    }
    if (!control->property(designed).isValid()) {
        control->setProperty(designed, present);
    }
    control->setProperty(property, text);
    control->setProperty(given, text);
}

} // namespace

void ApplyLanguage(QObject &screen, Module1 &module)
{
    if (!module.DatabaseConnection) {
        throw RuntimeFailure(
            QCoreApplication::translate("LanguagePass", "Det er ingen forbindelse med databasen."));
    }
    for (const CaptionPosition &caption : captionPositions()) {
        setCaption(screen, caption, {});
    }
    module.texts = {};
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
