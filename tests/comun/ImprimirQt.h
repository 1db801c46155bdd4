#pragma once
// Readable Qt values in GoogleTest failure messages.

#include <QString>
#include <QStringList>
#include <QVariant>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
inline void PrintTo(const QStringList& l, std::ostream* os) {
    *os << "{";
    for (int i = 0; i < l.size(); ++i)
        *os << (i ? ", " : "") << '"' << l.at(i).toStdString() << '"';
    *os << "}";
}
inline void PrintTo(const QVariant& v, std::ostream* os) {
    *os << v.toString().toStdString();
}
