#pragma once
// The date box of the option forms: the date is typed as in the posting screen (15/03/2026,
// 150326, 15326...) and checked by the same rules with the same messages, so that an impossible
// date such as 31/02/2026 is refused instead of being moved to the end of the month. The button
// at its right, or the "+" key, opens the month calendar.
//
//     auto* desde = new CajaFecha(s.FechaIniEj);
//     if (!ComprobarFechas({desde, hasta}, dialogo)) return;   // on Aceptar
//     use(desde->date());

#include <QDate>
#include <QLineEdit>
#include <initializer_list>

class Dialogo;
class QCalendarWidget;

class CajaFecha : public QLineEdit {
    Q_OBJECT
public:
    explicit CajaFecha(const QDate& fecha = {}, QWidget* padre = nullptr);

    // The date the box shows; a null date while its text is no date.
    QDate date() const;
    void setDate(const QDate& fecha);
    // Dates outside are refused by comprobar(), and the calendar offers none of them.
    void setDateRange(const QDate& minimo, const QDate& maximo);
    // Checks the text with the posting screen's rules; a date it accepts is shown in full
    // (dd/mm/aaaa), one it refuses is told through the dialog and takes the focus.
    bool comprobar(Dialogo& dialogo);
    void abrirCalendario();

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    QCalendarWidget* calendario_ = nullptr;
    QDate minimo_, maximo_;
};

// Checks the boxes in order and stops at the first refused one.
bool ComprobarFechas(std::initializer_list<CajaFecha*> cajas, Dialogo& dialogo);
