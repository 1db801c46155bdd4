#pragma once
// Reorganisation of the data of an exercise: the journal is checked entry by entry, Mayor is
// rebuilt from the journal, and the VAT records are checked against the journal lines they
// belong to. It is the repair to run when the books look wrong.

#include "yearend/Cierre.h"

#include <QList>
#include <QString>
#include <functional>

struct Sesion;

// The stages, as the progress names them.
extern const QString EtapaDiario;       // "Diario"
extern const QString EtapaSaldos;       // "Saldos"
extern const QString EtapaRegistrosIva; // "Registros IVA"

// "El asiento número 1.234 está descuadrado y debe modificarlo."
QString MsgAsientoDescuadrado(long nas);
// "Por favor, revise el Asiento nº 1.234. Compruebe los datos de IVA del mismo."
QString MsgRevisarIva(long nas);

struct ResultadoReorganizacion {
    QList<long> descuadrados;       // entries whose lines differ by more than 0.001
    QList<long> ivaSinRegistro;     // entry of each journal line whose VAT record is missing
    int subcuentas = 0;             // Mayor rows rebuilt
    int registrosIvaEliminados = 0; // VAT records that belonged to no journal line
};

// Runs the three stages on the current exercise. Each problem found is handed to avisar with its
// message as soon as it is found (the process goes on); progress goes by stage. Mayor is emptied
// and rebuilt in one transaction, only for the subaccounts of the chart and only where a sum is
// not zero; VAT records of no journal line are deleted. Nothing is changed in the journal.
ResultadoReorganizacion Reorganizar(Sesion& s, const std::function<void(const QString&)>& avisar,
                                    const ProgresoEtapa& progreso = {});
