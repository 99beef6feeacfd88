#pragma once

#include <QChar>
#include <QString>
#include <QStringList>
#include <QStringView>

// One record of a CSV file and the line of the file it starts on (the first line is 1).
struct CsvRecord
{
    int line = 0;
    QStringList fields;
    bool unterminated = false; // a quoted field ran to the end of the file
};

// Reads CSV text as RFC 4180 writes it: fields split by one delimiter, a field in double
// quotes may hold the delimiter, line breaks and doubled quotes. Lines may end in CR LF, LF
// or CR; empty lines hold no record.
class CsvReader
{
public:
    CsvReader(QStringView text, QChar delimiter);

    bool atEnd() const;
    CsvRecord next();
    // How far through the text the reader is, from 0 to 1.
    double fractionRead() const;

    // The delimiter of the first record: whichever of comma, semicolon and tab it holds most
    // of outside quotes; a comma when it holds none.
    static QChar detectDelimiter(QStringView text);

private:
    QString readField(bool &endsRecord, bool &unterminated);
    void skipLineEnd();
    void skipEmptyLines();

    QStringView m_text;
    QChar m_delimiter;
    qsizetype m_pos = 0;
    int m_line = 1;
};
