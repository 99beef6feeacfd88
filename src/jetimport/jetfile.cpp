#include "jetfile.h"

#include "catalogue/cataloguefile.h"
#include "data/catalogueformat.h"

#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

#include <fcntl.h>
#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

// libmdb 1.0.0 includes glib inside its extern "C" block, which C++ refuses.
#include <glib.h>
#include <mdbtools.h>

using namespace Qt::StringLiterals;

namespace {

// libmdb cuts a value longer than its bind size without a word, and every text column of a
// table gets a buffer of that size. So the buffers start small and grow, a row whose value
// fills one being read again: a table costs as much memory as its longest value needs.
constexpr size_t InitialBindSize = 64;
// Far beyond any note a catalogue holds; a longer value means a damaged file.
constexpr size_t MaximumBindSize = size_t(256) << 20;

// The smallest Jet page; Jet 4 uses twice this.
constexpr qint64 JetPageSize = 2048;

JetColumn::Type typeOf(int mdbType)
{
    switch (mdbType) {
    case MDB_BOOL: return JetColumn::Type::Boolean;
    case MDB_BYTE: return JetColumn::Type::Byte;
    case MDB_INT: return JetColumn::Type::Integer;
    case MDB_LONGINT: return JetColumn::Type::LongInteger;
    case MDB_MONEY: return JetColumn::Type::Currency;
    case MDB_FLOAT: return JetColumn::Type::Single;
    case MDB_DOUBLE: return JetColumn::Type::Double;
    case MDB_DATETIME: return JetColumn::Type::DateTime;
    case MDB_TEXT: return JetColumn::Type::Text;
    case MDB_MEMO: return JetColumn::Type::Memo;
    default: return JetColumn::Type::Other;
    }
}

bool isText(JetColumn::Type type)
{
    return type == JetColumn::Type::Text || type == JetColumn::Type::Memo;
}

// A Jet date is a count of days since 30 December 1899; the fraction is the time of day,
// counted forwards even for days before then.
QDateTime jetDate(double days)
{
    const double whole = std::trunc(days);
    const qint64 msecs = qRound64(std::abs(days - whole) * 86400000.0);
    return QDateTime(QDate(1899, 12, 30).addDays(qint64(whole)), QTime(0, 0)).addMSecs(msecs);
}

// libmdb tells of the troubles it meets on stderr, several lines at a time; the reader
// reports them itself, in one line. Kept around libmdb's calls only, so that whatever the
// caller writes to stderr meanwhile (progress) still shows.
class QuietStderr
{
public:
    QuietStderr()
    {
        std::fflush(stderr);
#ifdef Q_OS_WIN
        m_saved = _dup(_fileno(stderr));
        const int null = _open("NUL", _O_WRONLY);
        if (null >= 0) {
            _dup2(null, _fileno(stderr));
            _close(null);
        }
#else
        m_saved = dup(STDERR_FILENO);
        const int null = ::open("/dev/null", O_WRONLY);
        if (null >= 0) {
            dup2(null, STDERR_FILENO);
            ::close(null);
        }
#endif
    }
    ~QuietStderr()
    {
        std::fflush(stderr);
        if (m_saved < 0)
            return;
#ifdef Q_OS_WIN
        _dup2(m_saved, _fileno(stderr));
        _close(m_saved);
#else
        dup2(m_saved, STDERR_FILENO);
        ::close(m_saved);
#endif
    }
    QuietStderr(const QuietStderr &) = delete;
    QuietStderr &operator=(const QuietStderr &) = delete;

private:
    int m_saved = -1;
};

// libmdb trusts what a table's definition says of its columns and of the map of its data
// pages, and reads through null pointers and past the file's end where a damaged file says
// otherwise. Such a definition is refused before libmdb reads the table's rows.
bool isSound(MdbTableDef *def, qint64 pages)
{
    if (!mdb_read_columns(def) || !def->columns || def->columns->len < def->num_cols)
        return false;
    if (!def->usage_map || def->map_sz < 1)
        return false;
    // A map of the second kind lists the pages that hold the map itself.
    if (def->usage_map[0] == 1) {
        for (size_t at = 1; at + 4 <= def->map_sz; at += 4) {
            if (qFromLittleEndian<quint32>(def->usage_map + at) >= quint64(pages))
                return false;
        }
    }
    return true;
}

// The list of tables is itself a table, MSysObjects, whose definition is on page 2; libmdb
// reads it as it reads any table.
bool hasSoundListOfTables(MdbHandle *mdb, qint64 pages)
{
    MdbCatalogEntry objects = {};
    objects.mdb = mdb;
    objects.object_type = MDB_TABLE;
    objects.table_pg = 2;
    std::strcpy(objects.object_name, "MSysObjects");
    MdbTableDef *def = mdb_read_table(&objects);
    const bool sound = def && isSound(def, pages);
    if (def)
        mdb_free_tabledef(def);
    return sound;
}

} // namespace

QString JetCurrency::toString() const
{
    const qulonglong magnitude = tenThousandths < 0 ? 0 - qulonglong(tenThousandths) : qulonglong(tenThousandths);
    const QString text = QString::number(magnitude / 10000) + u'.'
        + QString::number(magnitude % 10000).rightJustified(4, u'0');
    return tenThousandths < 0 ? u'-' + text : text;
}

bool isNull(const JetValue &value)
{
    return std::holds_alternative<std::monostate>(value);
}

struct JetFile::Handle
{
    MdbHandle *mdb = nullptr;
    GPtrArray *catalogue = nullptr; // owned by mdb; read once, as tables point into it
    qint64 pages = 0;

    ~Handle()
    {
        const QuietStderr quiet;
        if (mdb)
            mdb_close(mdb);
    }

    MdbCatalogEntry *entry(const QString &table) const
    {
        for (guint i = 0; i < catalogue->len; ++i) {
            auto *entry = static_cast<MdbCatalogEntry *>(g_ptr_array_index(catalogue, i));
            if (QString::fromUtf8(entry->object_name).compare(table, Qt::CaseInsensitive) == 0)
                return entry;
        }
        return nullptr;
    }
};

// One table opened for reading, with a text buffer bound to each text and memo column.
class JetFile::Table
{
public:
    Table(MdbHandle *mdb, MdbTableDef *def, const QString &path)
        : m_mdb(mdb), m_def(def), m_path(path)
    {
        for (guint i = 0; i < def->num_cols; ++i) {
            auto *column = static_cast<MdbColumn *>(g_ptr_array_index(def->columns, i));
            m_columns << JetColumn{QString::fromUtf8(column->name), typeOf(column->col_type)};
        }
        m_buffers.resize(m_columns.size());
        m_lengths.resize(m_columns.size());
        // libmdb fills one field for each column the row holds, however many that is.
        m_fields.resize(std::max<qsizetype>(m_columns.size(), MDB_MAX_COLS));
        bind(InitialBindSize);
    }
    ~Table()
    {
        const QuietStderr quiet;
        mdb_free_tabledef(m_def);
    }
    Table(const Table &) = delete;
    Table &operator=(const Table &) = delete;

    const QList<JetColumn> &columns() const { return m_columns; }
    qint64 rowCount() const { return m_def->num_rows; }

    void readRows(const std::function<void(const JetRow &)> &handle)
    {
        mdb_rewind_table(m_def);
        qint64 read = 0;
        for (;;) {
            JetRow row;
            {
                const QuietStderr quiet;
                if (!mdb_fetch_row(m_def))
                    break;
                const int rowOnPage = int(m_def->cur_row) - 1;
                while (filledABuffer())
                    reread(rowOnPage);
                row = decode(rowOnPage);
            }
            handle(row);
            ++read;
        }
        if (read != rowCount())
            fail(u"table %1 holds %2 of its %3 rows: the file is damaged or cut short"_s.arg(QString::fromUtf8(m_def->name)).arg(read).arg(rowCount()));
    }

private:
    void bind(size_t size)
    {
        mdb_set_bind_size(m_mdb, size);
        for (qsizetype i = 0; i < m_columns.size(); ++i) {
            if (!isText(m_columns[i].type))
                continue;
            m_buffers[i].assign(size + 1, '\0');
            mdb_bind_column(m_def, int(i) + 1, m_buffers[i].data(), &m_lengths[i]);
        }
        m_bindSize = size;
    }

    bool filledABuffer() const
    {
        for (qsizetype i = 0; i < m_columns.size(); ++i) {
            if (isText(m_columns[i].type) && m_lengths[i] >= 0 && size_t(m_lengths[i]) + 1 >= m_bindSize)
                return true;
        }
        return false;
    }

    void reread(int rowOnPage)
    {
        if (m_bindSize >= MaximumBindSize)
            fail(u"a value in table %1 is too long"_s.arg(QString::fromUtf8(m_def->name)));
        bind(m_bindSize * 4);
        if (!mdb_read_row(m_def, rowOnPage))
            fail(u"a row of table %1 cannot be read again"_s.arg(QString::fromUtf8(m_def->name)));
    }

    JetRow decode(int rowOnPage)
    {
        int start = 0;
        size_t size = 0;
        if (mdb_find_row(m_mdb, rowOnPage, &start, &size) != 0)
            fail(u"a row of table %1 cannot be found"_s.arg(QString::fromUtf8(m_def->name)));
        const int cracked = mdb_crack_row(m_def, start, size, m_fields.data());
        if (cracked < int(m_columns.size()))
            fail(u"a row of table %1 is damaged"_s.arg(QString::fromUtf8(m_def->name)));
        JetRow row(m_columns.size());
        for (qsizetype i = 0; i < m_columns.size(); ++i) {
            const MdbField &field = m_fields[i];
            if (field.colnum < 0 || field.colnum >= m_columns.size())
                fail(u"a row of table %1 is damaged"_s.arg(QString::fromUtf8(m_def->name)));
            row[field.colnum] = value(field.colnum, field);
        }
        return row;
    }

    JetValue value(int column, const MdbField &field) const
    {
        const JetColumn::Type type = m_columns[column].type;
        // A yes/no value is the row's null bit itself.
        if (type == JetColumn::Type::Boolean)
            return JetValue(bool(!field.is_null));
        if (field.is_null)
            return {};
        if (isText(type))
            return QString::fromUtf8(m_buffers[column].data(), m_lengths[column]);
        const unsigned char *bytes = m_mdb->pg_buf + field.start;
        const auto need = [&](int size) {
            if (field.siz != size || field.start + size > m_mdb->fmt->pg_size)
                fail(u"a value of column %1 is damaged"_s.arg(m_columns[column].name));
        };
        switch (type) {
        case JetColumn::Type::Byte: need(1); return JetValue(qint64(bytes[0]));
        case JetColumn::Type::Integer: need(2); return JetValue(qint64(qFromLittleEndian<qint16>(bytes)));
        case JetColumn::Type::LongInteger: need(4); return JetValue(qint64(qFromLittleEndian<qint32>(bytes)));
        case JetColumn::Type::Currency: need(8); return JetValue(JetCurrency{qFromLittleEndian<qint64>(bytes)});
        case JetColumn::Type::Single: need(4); return JetValue(double(qFromLittleEndian<float>(bytes)));
        case JetColumn::Type::Double: need(8); return JetValue(qFromLittleEndian<double>(bytes));
        case JetColumn::Type::DateTime: need(8); return JetValue(jetDate(qFromLittleEndian<double>(bytes)));
        default: return {};
        }
    }

    [[noreturn]] void fail(const QString &problem) const
    {
        throw CatalogueFileError(u"%1 cannot be read: %2"_s.arg(m_path, problem));
    }

    MdbHandle *m_mdb;
    MdbTableDef *m_def;
    QString m_path;
    QList<JetColumn> m_columns;
    std::vector<std::vector<char>> m_buffers;
    std::vector<int> m_lengths;
    std::vector<MdbField> m_fields;
    size_t m_bindSize = 0;
};

JetFile::JetFile(const QString &path) : m_path(path), m_handle(std::make_unique<Handle>())
{
    const QFileInfo info(path);
    switch (CatalogueFormat::ofFile(path)) {
    case CatalogueFormat::Kind::Missing:
        throw CatalogueFileError(info.isDir() ? u"%1 is a folder"_s.arg(path) : u"%1 does not exist"_s.arg(path));
    case CatalogueFormat::Kind::Jet:
        break;
    case CatalogueFormat::Kind::Sqlite:
        throw CatalogueFileError(u"%1 is a Shelvane catalogue already: there is nothing to import"_s.arg(path));
    case CatalogueFormat::Kind::Other:
        throw CatalogueFileError(u"%1 is not a Jet database"_s.arg(path));
    }
    // A file cut short ends part-way through a page; libmdb would read past its end.
    if (info.size() % JetPageSize != 0)
        throw CatalogueFileError(u"%1 cannot be read: the file is cut short"_s.arg(path));
    const QuietStderr quiet;
    m_handle->mdb = mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS);
    if (!m_handle->mdb)
        throw CatalogueFileError(u"%1 cannot be read as a Jet database"_s.arg(path));
    if (info.size() % m_handle->mdb->fmt->pg_size != 0)
        throw CatalogueFileError(u"%1 cannot be read: the file is cut short"_s.arg(path));
    m_handle->pages = info.size() / m_handle->mdb->fmt->pg_size;
    if (!hasSoundListOfTables(m_handle->mdb, m_handle->pages))
        throw CatalogueFileError(u"%1 cannot be read: its list of tables is damaged"_s.arg(path));
    m_handle->catalogue = mdb_read_catalog(m_handle->mdb, MDB_TABLE);
    if (!m_handle->catalogue)
        throw CatalogueFileError(u"%1 cannot be read: its list of tables is damaged"_s.arg(path));
}

JetFile::~JetFile() = default;

QStringList JetFile::tableNames() const
{
    QStringList names;
    for (guint i = 0; i < m_handle->catalogue->len; ++i) {
        auto *entry = static_cast<MdbCatalogEntry *>(g_ptr_array_index(m_handle->catalogue, i));
        // Jet's own tables are all named MSys...
        if (entry->object_type == MDB_TABLE && !mdb_is_system_table(entry))
            names << QString::fromUtf8(entry->object_name);
    }
    return names;
}

bool JetFile::hasTable(const QString &name) const
{
    return tableNames().contains(name, Qt::CaseInsensitive);
}

std::unique_ptr<JetFile::Table> JetFile::open(const QString &table) const
{
    MdbCatalogEntry *entry = m_handle->entry(table);
    if (!entry)
        throw CatalogueFileError(u"%1 has no table %2"_s.arg(m_path, table));
    const QuietStderr quiet;
    MdbTableDef *def = mdb_read_table(entry);
    if (def && !isSound(def, m_handle->pages)) {
        mdb_free_tabledef(def);
        def = nullptr;
    }
    if (!def)
        throw CatalogueFileError(u"%1 cannot be read: table %2 is damaged"_s.arg(m_path, table));
    return std::make_unique<Table>(m_handle->mdb, def, m_path);
}

QList<JetColumn> JetFile::columns(const QString &table) const
{
    return open(table)->columns();
}

qint64 JetFile::rowCount(const QString &table) const
{
    return open(table)->rowCount();
}

void JetFile::readRows(const QString &table, const std::function<void(const JetRow &)> &row) const
{
    open(table)->readRows(row);
}
