#pragma once

#include <QString>

// The two forms a catalogue's connection string takes: the run-time form naming the open
// catalogue, and the design-time form that names no file and is replaced before use.
namespace ConnectionString {

inline constexpr QLatin1StringView designTime{
    "Provider=Microsoft.Jet.OLEDB.4.0;Mode=Share Deny None;Persist Security Info=False"};

// "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path + ";Persist Security Info=False"
QString forCatalogue(const QString &cataloguePath);

// The file a connection string names, or an empty string when it names none (the
// design-time strings of the forms and of the report connections).
QString dataSource(const QString &connectionString);

} // namespace ConnectionString
