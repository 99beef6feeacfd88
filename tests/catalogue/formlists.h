#pragma once

#include <QString>

// The fixed lists the book and author forms offer, written as SQL lists for "x IN …"
// conditions: catalogue content must stay within them.
namespace FormLists {

using namespace Qt::StringLiterals;

inline const QString conditions = u"('Mint', 'Excl', 'Good', 'Fair', 'Poor')"_s;

inline const QString covers =
    u"('Full Calf', 'Half Calf', 'Leather Spine with Boards', 'Boxed', 'Hard Back & DW', "
    "'Hard Back no DW', 'Soft Back', 'Paper Back')"_s;

inline const QString nationalities =
    u"('American', 'Australian', 'Austrian', 'Belgian', 'British', 'Canadian', 'Danish', 'Dutch', "
    "'French', 'German', 'Greek', 'Isreali', 'Norwegian', 'Polish', 'Portuguese', 'Russian', "
    "'Spanish', 'Swedish', 'Swiss', 'Turkish')"_s;

} // namespace FormLists
