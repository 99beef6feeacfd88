#pragma once

#include <QByteArray>
#include <QString>

// The encodings a spreadsheet or another catalogue program writes its CSV files in, told
// apart by the bytes themselves: a UTF-8 byte order mark, text that is valid UTF-8, or else
// Windows-1252 (Excel's "CSV" on a Western Windows).
namespace TextEncoding {

enum class Encoding { Utf8, Utf8WithBom, Windows1252 };

struct Decoded
{
    QString text; // accents composed (NFC), as the program stores them
    Encoding encoding = Encoding::Utf8;
};

Decoded decode(const QByteArray &bytes);

// "UTF-8", "UTF-8 with BOM", "Windows-1252"
QString nameOf(Encoding encoding);

} // namespace TextEncoding
