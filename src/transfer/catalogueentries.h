#pragma once

#include "transfer/personname.h"

#include <QHash>
#include <QSqlDatabase>
#include <QString>

class CatalogueWriter;

// The authors, topics and publishers of a catalogue, found by name as the program's "="
// finds them (the case of any letter ignored), and added when not found. Without a writer
// (a dry run) nothing is written, but what would be added is counted and found again.
class CatalogueEntries
{
public:
    explicit CatalogueEntries(CatalogueWriter *writer);

    // Reads every author, topic and publisher the catalogue holds, or only the publishers
    // (a new catalogue, whose first author and topic written take the seed rows' places).
    // Throws CatalogueFileError.
    void loadAll(const QSqlDatabase &db);
    void loadPublishers(const QSqlDatabase &db);

    qint64 author(const PersonName &name);
    qint64 topic(const QString &description);
    // An empty name is the "UnKnown" publisher. A publisher is the one of that name and
    // place; without a place, the first of that name.
    qint64 publisher(const QString &name, const QString &place);

    int newAuthors() const { return m_newAuthors; }
    int newTopics() const { return m_newTopics; }
    int newPublishers() const { return m_newPublishers; }

private:
    void remember(const QString &name, const QString &place, qint64 id);

    CatalogueWriter *m_writer;
    QHash<QString, qint64> m_authors;
    QHash<QString, qint64> m_topics;
    QHash<QString, qint64> m_publishers; // by name and place
    QHash<QString, qint64> m_publisherNames; // by name alone: the first of each name
    int m_newAuthors = 0;
    int m_newTopics = 0;
    int m_newPublishers = 0;
    qint64 m_notWritten = 0; // the keys a dry run hands out, below nought
};
