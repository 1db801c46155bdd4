#pragma once
// How logic tells and asks the user. Logic never shows a window: the desktop answers with message
// boxes, the command line on standard error, the tests from a script.

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

class Dialogo {
public:
    virtual ~Dialogo() = default;
    // An information box with the window's title.
    virtual void Informar(const QString& texto) = 0;
    // A yes/no question; No is the default answer.
    virtual bool Preguntar(const QString& texto) = 0;
    // A yes/no question whose default answer is Yes: the confirmation of a step that is not
    // destructive. Where defaults mean nothing (scripts, the command line) it is Preguntar.
    virtual bool PreguntarSi(const QString& texto) { return Preguntar(texto); }
    // Asks for a line of text; an empty result means cancelled.
    virtual QString PedirTexto(const QString& texto, const QString& defecto) = 0;
    // Asks for a password: nothing typed shows. Empty means cancelled.
    virtual QString PedirClave(const QString& texto) { return PedirTexto(texto, QString()); }
};

// Command line: messages go to standard error; questions are answered yes only with --si.
class DialogoConsola : public Dialogo {
public:
    explicit DialogoConsola(bool siATodo) : siATodo_(siATodo) {}
    void Informar(const QString& texto) override;
    bool Preguntar(const QString& texto) override;
    QString PedirTexto(const QString& texto, const QString& defecto) override;

private:
    bool siATodo_;
};

// Tests: records every text and answers from a list (questions take the next bool; when the list
// runs out they answer No; texts take the next string, or the default).
class DialogoGuion : public Dialogo {
public:
    void Informar(const QString& texto) override;
    bool Preguntar(const QString& texto) override;
    QString PedirTexto(const QString& texto, const QString& defecto) override;

    void responder(std::initializer_list<bool> respuestas);
    void responderTextos(const QStringList& textos) { textosPorDar_ += textos; }

    // Every text shown or asked, in order.
    QStringList textos;
    QStringList informados;
    QStringList preguntas;

private:
    QList<bool> respuestas_;
    QStringList textosPorDar_;
};

// Long work reports its progress (done, total) through this; it may be empty.
using Progreso = std::function<void(qint64 hecho, qint64 total)>;
