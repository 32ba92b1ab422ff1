#include "platform/Operator.h"

#include <QScopeGuard>

void Operator::showFailure(const QString &description, const QString &title)
{
    if (open_.contains(description)) {
        return;
    }
    open_.append(description);
    const auto closed = qScopeGuard([&] { open_.removeOne(description); });
    messageBox(description, title, Buttons::Ok);
}
