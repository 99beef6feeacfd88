#include "data/recordset.h"

#include "data/findcriterion.h"
#include "data/jetsql.h"
#include "data/providererror.h"
#include "data/recordsetprivate.h"

#include <QHash>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void noCurrentRecord()
{
    throw ProviderError::general(ProviderErrorNumber::NoCurrentRecord,
                                 u"Either BOF or EOF is True, or the current record has been "
                                 "deleted. Requested operation requires a current record."_s);
}

[[noreturn]] void notUpdatable()
{
    throw ProviderError::general(ProviderErrorNumber::ReadOnly,
                                 u"Current Recordset does not support updating. This may be a "
                                 "limitation of the provider, or of the selected locktype."_s);
}

} // namespace

Recordset::Recordset()
    : d(std::make_unique<Private>())
{
}

Recordset::~Recordset() = default;

std::unique_ptr<Recordset> Recordset::open(Connection &connection, const QString &commandText,
                                           CommandType type, Reading reading)
{
    std::unique_ptr<Recordset> rs(new Recordset);
    rs->d->connection = &connection;
    rs->d->readWhole = reading == Reading::Whole;
    rs->d->sql = type == CommandType::Text ? JetSql::toCollatedSqlite(commandText)
                                           : u"SELECT * FROM "_s + commandText;
    rs->d->fetch();
    rs->d->open = true;
    rs->d->pos = 0;
    return rs;
}

std::unique_ptr<Recordset> Recordset::fromRows(const QStringList &fieldNames,
                                               const QList<QVariantList> &rows)
{
    std::unique_ptr<Recordset> rs(new Recordset);
    rs->d->setFields(fieldNames);
    for (const QVariantList &row : rows)
        rs->d->appendRow(row);
    rs->d->open = true;
    rs->d->pos = 0;
    return rs;
}

bool Recordset::isOpen() const
{
    return d->open;
}

void Recordset::close()
{
    Q_EMIT aboutToReset();
    d->open = false;
    d->store.reset(0);
    d->serials.clear();
    d->lazy.reset();
    d->mode = EditMode::None;
    d->pending.clear();
    d->keyIndexValid = false;
    Q_EMIT resetDone();
}

bool Recordset::bof() const
{
    return d->count() == 0 || (!d->gap && d->pos < 0);
}

bool Recordset::eof() const
{
    return d->count() == 0 || (!d->gap && d->pos >= d->count());
}

int Recordset::recordCount() const
{
    return d->count();
}

int Recordset::absolutePosition() const
{
    if (d->onRow())
        return d->pos + 1;
    if (d->gap)
        return PositionUnknown;
    return bof() ? PositionBOF : PositionEOF;
}

int Recordset::currentRow() const
{
    return d->onRow() ? d->pos : -1;
}

void Recordset::moveTo(int row)
{
    if (d->mode != EditMode::None)
        update();
    d->pos = std::clamp(row, -1, d->count());
    d->gap = false;
    Q_EMIT moveComplete();
}

void Recordset::moveFirst()
{
    moveTo(0);
}

void Recordset::moveLast()
{
    moveTo(d->count() - 1);
}

void Recordset::moveNext()
{
    if (eof() && !d->gap)
        noCurrentRecord();
    moveTo(d->gap ? d->pos : d->pos + 1);
}

void Recordset::movePrevious()
{
    if (bof() && !d->gap)
        noCurrentRecord();
    moveTo(d->pos - 1);
}

void Recordset::move(int n)
{
    if (n == 0) {
        if (d->mode != EditMode::None)
            update();
        return;
    }
    if (!d->onRow() && !d->gap)
        noCurrentRecord();
    if (d->gap && n > 0)
        moveTo(d->pos + n - 1);
    else
        moveTo(d->pos + n);
}

bool Recordset::find(const QString &criterion, int skip, bool forward)
{
    const FindCriterion wanted = FindCriterion::parse(criterion);
    const int column = d->field(wanted.field);
    int start = d->onRow() || d->gap ? d->pos : (bof() ? 0 : d->count() - 1);
    if (d->gap && !forward)
        --start;
    start += forward ? skip : -skip;

    int found = -1;
    const bool byKey = column == d->keyColumn() && wanted.op == FindCriterion::Op::Equal
        && wanted.value.typeId() == QMetaType::LongLong && d->eachKeyOnce();
    if (byKey) {
        const int row = d->rowOf(wanted.value.toLongLong());
        if (row >= 0 && (forward ? row >= start : row <= start))
            found = row;
    } else {
        for (int r = start; r >= 0 && r < d->count(); r += forward ? 1 : -1) {
            if (wanted.matches(valueAt(r, column))) {
                found = r;
                break;
            }
        }
    }
    moveTo(found >= 0 ? found : (forward ? d->count() : -1));
    return found >= 0;
}

Recordset::Bookmark Recordset::bookmark() const
{
    if (!d->onRow())
        noCurrentRecord();
    return d->serials[std::size_t(d->pos)];
}

void Recordset::setBookmark(Bookmark bookmark)
{
    const auto it = std::lower_bound(d->serials.begin(), d->serials.end(), bookmark);
    if (it == d->serials.end() || *it != bookmark)
        noCurrentRecord();
    moveTo(int(it - d->serials.begin()));
}

int Recordset::fieldCount() const
{
    return int(d->fields.size());
}

QStringList Recordset::fieldNames() const
{
    return d->fields;
}

int Recordset::fieldIndex(const QString &name) const
{
    return d->fieldByName.value(name.toLower(), -1);
}

QVariant Recordset::value(const QString &name) const
{
    return value(d->field(name));
}

QVariant Recordset::value(int field) const
{
    if (!d->onRow())
        noCurrentRecord();
    d->checkField(field);
    return valueAt(d->pos, field);
}

QVariant Recordset::valueAt(int row, int field) const
{
    if (d->mode != EditMode::None && row == d->pos)
        return d->pending.value(field);
    if (field != d->keyColumn())
        d->read(row);
    return d->store.value(row, field);
}

int Recordset::firstRowShowing(int field, const QString &text, Qt::CaseSensitivity cs) const
{
    d->checkField(field);
    std::optional<QVariantList> keys;
    if (d->lazy && field != d->lazy->keyColumn())
        keys = d->lazy->keysMaybeWithText(*d->connection, d->fields.at(field), text, cs);
    QSet<int> candidates;
    if (keys)
        for (const QVariant &key : std::as_const(*keys))
            candidates.insert(d->rowOf(key.toLongLong()));
    for (int row = 0; row < d->count(); ++row) {
        const bool known = !keys || d->lazy->isRead(row)
            || (d->mode != EditMode::None && row == d->pos);
        if (!known && !candidates.contains(row))
            continue;
        if (valueAt(row, field).toString().compare(text, cs) == 0)
            return row;
    }
    return -1;
}

void Recordset::setValue(const QString &name, const QVariant &value)
{
    setValue(d->field(name), value);
}

void Recordset::setValue(int field, const QVariant &value)
{
    if (!d->onRow())
        noCurrentRecord();
    d->checkField(field);
    if (!d->writer || !d->writer->isWritable(field))
        notUpdatable();
    if (d->mode == EditMode::None) {
        Q_EMIT willChangeRecord(ChangeReason::FirstChange);
        d->read(d->pos);
        d->pending = d->store.row(d->pos);
        d->mode = EditMode::InProgress;
    }
    d->pending[field] = value;
    Q_EMIT fieldChanged(d->pos, field);
}

void Recordset::addNew()
{
    if (!d->writer)
        notUpdatable();
    if (d->mode != EditMode::None)
        update();
    d->rowBeforeAdd = d->onRow() ? d->pos : -1;
    const int row = d->count();
    Q_EMIT aboutToInsertRow(row);
    d->appendRow(QVariantList(d->fields.size()));
    if (d->lazy)
        d->lazy->rowAppended();
    d->pending = QVariantList(d->fields.size());
    d->mode = EditMode::Add;
    d->keyIndexValid = false;
    d->pos = row;
    d->gap = false;
    Q_EMIT rowInserted(row);
    Q_EMIT moveComplete();
}

void Recordset::update()
{
    if (d->mode == EditMode::None)
        return;
    Q_EMIT willChangeRecord(ChangeReason::Write);
    QVariant key;
    if (d->mode == EditMode::Add) {
        key = d->writer->insert(d->pending);
    } else {
        key = d->store.value(d->pos, d->writer->keyColumn());
        d->writer->update(key, d->store.row(d->pos), d->pending);
    }
    QVariantList written = d->pending;
    written[d->writer->keyColumn()] = key;
    d->store.setRow(d->pos, d->writer->reread(key, written));
    d->mode = EditMode::None;
    d->pending.clear();
    d->keyIndexValid = false;
    Q_EMIT rowChanged(d->pos);
}

void Recordset::cancelUpdate()
{
    if (d->mode == EditMode::InProgress) {
        d->mode = EditMode::None;
        d->pending.clear();
        Q_EMIT rowChanged(d->pos);
        return;
    }
    if (d->mode != EditMode::Add)
        return;
    const int row = d->pos;
    d->mode = EditMode::None;
    d->pending.clear();
    Q_EMIT aboutToRemoveRow(row);
    d->store.removeRow(row);
    d->serials.erase(d->serials.begin() + row);
    if (d->lazy)
        d->lazy->rowRemoved(row);
    d->keyIndexValid = false;
    Q_EMIT rowRemoved(row);
    d->pos = d->rowBeforeAdd >= 0 ? d->rowBeforeAdd : d->count();
    Q_EMIT moveComplete();
}

void Recordset::deleteCurrent()
{
    if (d->mode == EditMode::Add) {
        cancelUpdate();
        return;
    }
    if (!d->onRow())
        noCurrentRecord();
    if (!d->writer)
        notUpdatable();
    Q_EMIT willChangeRecord(ChangeReason::Delete);
    d->writer->remove(d->store.value(d->pos, d->writer->keyColumn()));
    d->mode = EditMode::None;
    d->pending.clear();
    const int row = d->pos;
    Q_EMIT aboutToRemoveRow(row);
    d->store.removeRow(row);
    d->serials.erase(d->serials.begin() + row);
    if (d->lazy)
        d->lazy->rowRemoved(row);
    d->keyIndexValid = false;
    d->gap = true;
    Q_EMIT rowRemoved(row);
}

Recordset::EditMode Recordset::editMode() const
{
    return d->mode;
}

void Recordset::requery()
{
    if (!d->connection)
        return;
    if (d->mode != EditMode::None)
        update();
    Q_EMIT aboutToReset();
    try {
        d->fetch();
    } catch (...) {
        Q_EMIT resetDone();
        throw;
    }
    d->open = true;
    d->pos = 0;
    d->gap = false;
    Q_EMIT resetDone();
    Q_EMIT moveComplete();
}

qint64 Recordset::bytesHeld() const
{
    return d->store.bytesUsed() + qint64(d->serials.capacity() * sizeof(Bookmark));
}

int Recordset::rowsRead() const
{
    return d->lazy ? d->lazy->rowsRead() : d->count();
}

bool Recordset::isUpdatable() const
{
    return d->writer.has_value();
}

QString Recordset::baseTable() const
{
    return d->writer ? d->writer->table() : QString();
}

QString Recordset::keyField() const
{
    return d->writer ? d->writer->keyField() : QString();
}
