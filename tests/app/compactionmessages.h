#pragma once

#include "support/modalresponder.h"

#include <QString>

// The messages of File › Compact Catalogue that more than one test meets.

inline ModalExpectation compactQuestion(const QString &press)
{
    return ModalResponder::message(
        QStringLiteral("Compact Database!"),
        QStringLiteral("Use this option after adding 100 or more entities,\r\n"
                       "either books, authors, publishers or topics.\r\n\r\n"
                       "It will help improve the Shelvane response time.     \r\n\r\n"
                       "Please ensure all open windows are closed before use!      \r\n\r\n"
                       "Do you wish to continue?"),
        QMessageBox::Information, {QStringLiteral("Yes"), QStringLiteral("No")}, press);
}

inline ModalExpectation compactInUse()
{
    return ModalResponder::message(
        QStringLiteral("Compact Database"),
        QStringLiteral("Database in use please exit Shelvane\r\nre-open Database and try again"),
        QMessageBox::Warning, {QStringLiteral("OK")}, QStringLiteral("OK"));
}

inline ModalExpectation compactSucceeded(const QString &path)
{
    return ModalResponder::message(QStringLiteral("Re-Organise Database"),
                                   QStringLiteral("Database Successfully re-organised\r\n") + path,
                                   QMessageBox::Information, {QStringLiteral("OK")},
                                   QStringLiteral("OK"));
}
