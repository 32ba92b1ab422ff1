#pragma once

#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

/// Keys such as "Ctrl+PgDown" that do something wherever the focus is in the widget's window.
template <class Action> void onKey(QWidget &widget, const char *keys, Action action)
{
    QObject::connect(new QShortcut(QKeySequence(QString::fromLatin1(keys)), &widget),
                     &QShortcut::activated, &widget, action);
}
