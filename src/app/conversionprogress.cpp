#include "app/conversionprogress.h"

#include "jetimport/catalogueimport.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

constexpr int Steps = 1000;
constexpr int ShowAfterMs = 1000;

// The parts of a catalogue as its owner knows them.
QString partName(const QString &table)
{
    static const QHash<QString, QString> names{
        {u"tblPublisher"_s, u"publishers"_s},
        {u"tblAuthor"_s, u"authors"_s},
        {u"tblTopic"_s, u"topics"_s},
        {u"tblBook"_s, u"books"_s},
        {u"tblBookAuthor"_s, u"the books' authors"_s},
        {u"tblBookTopic"_s, u"the books' topics"_s},
        {u"tblCatalogueControl"_s, u"the owner's details"_s},
        {u"tblCriteriaHits"_s, u"the last search"_s},
        {u"tblLabelTable"_s, u"the labels"_s},
    };
    return names.value(table, table);
}

} // namespace

ConversionProgress::ConversionProgress(QWidget *parent) : QProgressDialog(parent)
{
    setObjectName(u"prgConvertCatalogue"_s);
    setWindowTitle(u"Shelvane"_s);
    setLabelText(u"Converting the catalogue..."_s);
    setCancelButton(nullptr); // the conversion is one transaction: it finishes or changes nothing
    setRange(0, Steps);
    setMinimumDuration(ShowAfterMs);
    setWindowModality(Qt::ApplicationModal);
    setAutoClose(false);
    setAutoReset(false);
    setMinimumWidth(360);
}

void ConversionProgress::tableProgress(const QString &table, qint64 done, qint64 total)
{
    const QStringList tables = CatalogueImport::tables();
    const double part = total > 0 ? double(done) / double(total) : 1.0;
    const double whole = (std::max<qsizetype>(tables.indexOf(table), 0) + part) / double(tables.size());
    setLabelText(u"Converting the catalogue: %1 (%2 of %3)"_s.arg(partName(table)).arg(done).arg(total));
    setValue(int(whole * Steps));
}
