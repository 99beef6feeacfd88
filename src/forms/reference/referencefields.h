#pragma once

#include "forms/reference/referencelist.h"

#include <QList>
#include <QString>

class QGridLayout;
class QWidget;

// A field of the form, built from its description.
struct FieldWidget
{
    const ReferenceField *definition;
    QWidget *widget;
};

// Builds the fields of a list into the grid of the form's details frame, one labelled row
// each, in the list's order.
QList<FieldWidget> BuildFields(const QList<ReferenceField> &fields, QGridLayout *grid);

// What a field shows, and showing a value in it: its user property, the one a widget mapper
// binds.
QString FieldText(const QWidget *field);
void SetFieldText(QWidget *field, const QString &text);
