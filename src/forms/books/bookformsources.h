#pragma once

#include <QList>
#include <QString>

// One data control of the book form and the statement it opens.
struct DataControlSource
{
    QString name;
    QString recordSource;
};

// The book form's six data controls, in the order in which the form binds them.
const QList<DataControlSource> &BookFormSources();

// While the form shows a search's hits, its book and book lookup controls open these instead.
extern const QString FilteredLookupSource;
extern const QString FilteredBookSource;
