#pragma once

#include <QIcon>
#include <QString>

// The pictures of the browsers' trees by their key: "Topic", "Author", "Book", "OpenBook".
// A null icon for any other key.
QIcon TreeImage(const QString &key);
