#pragma once

#include "support/modalresponder.h"

#include <QDir>
#include <QString>

// The one message that says an automatic backup could not be made.
inline ModalExpectation backupFailedMessage(const QString &folder, const QString &reason)
{
    return ModalResponder::message(
        QStringLiteral("Shelvane"),
        QStringLiteral("No backup copy of the catalogue could be made in\r\n") + QDir::toNativeSeparators(folder)
            + QStringLiteral("\r\n(") + reason
            + QStringLiteral(")\r\n\r\nYour catalogue itself is unharmed. Please check that folder and that the "
                             "disk has room."),
        QMessageBox::Warning, {QStringLiteral("OK")}, QStringLiteral("OK"));
}
