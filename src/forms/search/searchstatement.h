#pragma once

#include <QString>

// What the search form's criteria hold when Search is pressed: whether each box is ticked and
// the texts of its inputs, exactly as typed or picked.
struct SearchCriteria
{
    struct Text
    {
        bool ticked = false;
        QString text;
    };
    // A lookup combo's text beside a text box for part of a name.
    struct Lookup
    {
        bool ticked = false;
        QString lookupText;
        QString text;
    };
    struct Range
    {
        bool ticked = false;
        QString from;
        QString to;
    };

    Text title;
    Lookup author;
    Lookup topic;
    Lookup publisher;
    Range price;
    Range date;
};

// The statement that selects the keys of the books meeting the criteria. It is spliced from
// fixed fragments and the texts as given, unquoted and unescaped, so that a text the catalogue
// cannot read (an apostrophe, an empty range bound) makes the statement fail.
QString SearchStatement(const SearchCriteria &criteria);
