// How quickly an older Jet catalogue of a few thousand books is brought across. There is no
// writer of Jet files, so the test catalogue of 120 books is read as many times as it takes,
// each copy's keys moved past the previous copy's, as one large catalogue.

#include "jetimport/catalogueimport.h"
#include "jetimport/jetfile.h"

#include <QElapsedTimer>
#include <QHash>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Past every key of the test catalogue.
constexpr qint64 KeyStep = 1000;

class RepeatedTables : public JetTables
{
public:
    RepeatedTables(const JetFile &file, int copies) : m_file(file), m_copies(copies) {}

    bool hasTable(const QString &name) const override { return m_file.hasTable(name); }
    QList<JetColumn> columns(const QString &table) const override { return m_file.columns(table); }
    qint64 rowCount(const QString &table) const override { return m_file.rowCount(table) * copiesOf(table); }
    void readRows(const QString &table, const std::function<void(const JetRow &)> &handle) const override
    {
        const QList<int> keys = keyColumns.value(table);
        for (int copy = 0; copy < copiesOf(table); ++copy) {
            m_file.readRows(table, [&](const JetRow &row) {
                JetRow moved = row;
                for (int column : keys) {
                    if (const auto *key = std::get_if<qint64>(&moved[column]))
                        moved[column] = *key + copy * KeyStep;
                }
                handle(moved);
            });
        }
    }

private:
    // The owner's details and the working tables are there once.
    int copiesOf(const QString &table) const { return keyColumns.contains(table) ? m_copies : 1; }

    inline static const QHash<QString, QList<int>> keyColumns{
        {u"tblPublisher"_s, {0}},     {u"tblAuthor"_s, {0}},        {u"tblTopic"_s, {0}},
        {u"tblBook"_s, {0, 6}},       {u"tblBookAuthor"_s, {0, 1}}, {u"tblBookTopic"_s, {0, 1}},
    };

    const JetFile &m_file;
    int m_copies;
};

} // namespace

int main(int argc, char **argv)
{
    const int copies = argc > 1 ? std::max(1, std::atoi(argv[1])) : 50;
    const JetFile file(QStringLiteral(SHELVANE_JET_TESTDATA "/QuireshelfCatalog01.mdb"));
    const RepeatedTables tables(file, copies);
    QTemporaryDir dir;
    QElapsedTimer timer;
    timer.start();
    const CatalogueImport::Summary summary = CatalogueImport::run(tables, u"old.mdb"_s, dir.filePath(u"new.mdb"_s));
    const qint64 total = timer.elapsed();
    std::printf("%lld books, %lld rows: imported in %lld ms (%lld rows a second), checked in %lld ms; %s\n",
                tables.rowCount(u"tblBook"_s), summary.rows(), summary.milliseconds,
                summary.milliseconds > 0 ? summary.rows() * 1000 / summary.milliseconds : summary.rows(),
                total - summary.milliseconds, summary.checkProblems.isEmpty() ? "sound" : "NOT SOUND");
    return 0;
}
