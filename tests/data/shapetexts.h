#pragma once

#include "data/shapeparser.h"

#include <QString>

// The data environment's two shaped commands.
QString bookDetailsText();
QString byTopicDescriptionText();

extern const QString syntaxErrorStart;

// A tree written back as text in one spelling, every name back-quoted, so that two texts
// read alike exactly when they print alike.
QString reprint(const ShapeTree &tree);
