#pragma once

#include <QProgressDialog>

// The progress of converting an older catalogue: which part of the catalogue is being
// brought across and how far the whole conversion has gone. Shows itself only when the
// conversion takes long enough to wonder about.
class ConversionProgress : public QProgressDialog
{
    Q_OBJECT

public:
    explicit ConversionProgress(QWidget *parent = nullptr);

    // What the import reports as it reads each table.
    void tableProgress(const QString &table, qint64 done, qint64 total);
};
