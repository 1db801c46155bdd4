#pragma once
// Errors that carry the Spanish text the user is shown. Callers catch ErrorQuilmar once and tell
// the user its mensaje().

#include <QString>
#include <stdexcept>

class ErrorQuilmar : public std::runtime_error {
public:
    explicit ErrorQuilmar(const QString& mensaje)
        : std::runtime_error(mensaje.toStdString()), mensaje_(mensaje) {}
    QString mensaje() const { return mensaje_; }

private:
    QString mensaje_;
};

// The store failed: a file missing, damaged, foreign or busy, or a statement that failed.
class ErrorAlmacen : public ErrorQuilmar {
public:
    using ErrorQuilmar::ErrorQuilmar;
};

// The user's request is refused by a rule of the books, with the rule's own message.
class Rechazo : public ErrorQuilmar {
public:
    using ErrorQuilmar::ErrorQuilmar;
};
