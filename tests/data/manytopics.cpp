#include "manytopics.h"

#include <QSqlQuery>
#include <QVariant>

using namespace Qt::StringLiterals;

void AddManyTopics(const QSqlDatabase &db, int count)
{
    QSqlDatabase writer = db;
    writer.transaction();
    QSqlQuery insert(db);
    insert.prepare(u"insert into tblTopic (TopicDescription, TopicNotes) values (?, ?)"_s);
    for (int i = 0; i < count; ++i) {
        insert.addBindValue(u"Topic %1"_s.arg((i * 37) % 500, 3, 10, QChar(u'0')));
        insert.addBindValue(i % 3 == 0 ? QVariant() : QVariant(u"Notes %1"_s.arg(i)));
        insert.exec();
    }
    for (const QString &description : {u"Late subject"_s, u"LATE SUBJECT"_s, u"Écoles"_s}) {
        insert.addBindValue(description);
        insert.addBindValue(QVariant());
        insert.exec();
    }
    writer.commit();
}
