#include "data/NewFile.h"

#include "platform/RuntimeFailure.h"

#include <QCoreApplication>

NewFile::NewFile(const QString &path) : file_(path)
{
    if (!file_.open(QIODevice::NewOnly | QIODevice::WriteOnly)) {
        throw RuntimeFailure(QCoreApplication::translate("NewFile", "Kan ikke lage filen %1: %2")
                                 .arg(path, file_.errorString()));
    }
    file_.close();
}

NewFile::~NewFile()
{
    if (!kept_) {
        file_.remove();
    }
}
