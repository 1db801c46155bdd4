#pragma once
// The list of reminders: the grid of Form37 (what it shows, copies and the command line prints)
// and its printed list "Listados de Avisos", whose third column has always been headed
// "Importe" although it holds the times a year.
//
// Usage:
//     Rejilla r = RejillaAvisos();
//     { Conexion c = AbrirAvisos(s); LlenarRejillaAvisos(LeerAvisos(c), r); }
//     ImprimirLibro(ventana, DibujoListaAvisos(r, OpcionesListaAvisos(ajustes)), {...});

#include "platform/Impresora.h"
#include "platform/Rejilla.h"
#include "reports/OpcionesLibro.h"
#include "utilities/Avisos.h"

class Ajustes;

inline const QString TituloListaAvisos = QStringLiteral("Listados de Avisos");

// "Fecha", "Texto", "Periodo" and the hidden "NAviso"; a one-off shows an empty period.
enum ColAvisos { ColAvFecha, ColAvTexto, ColAvPeriodo, ColAvNAviso };
Rejilla RejillaAvisos();
void LlenarRejillaAvisos(const QList<Aviso>& avisos, Rejilla& r);

// The print font of the program (NFImprimir, TFImprimir), the usual left edge, and today as the
// date in the head.
OpcionesLibro OpcionesListaAvisos(const Ajustes& a, const QDate& hoy);

// The printed list: "Fecha", "Texto", "Importe". The grid must outlive the drawing.
DibujoLibro DibujoListaAvisos(const Rejilla& r, const OpcionesLibro& op);
