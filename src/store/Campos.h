#pragma once
// The text fields the books keep and the size of each: the one place that screens (their typing
// limits), the command line and the import take them from, so that every path accepts the same
// text and refuses it with the same message.
//
// Usage:
//     const QString concepto = TextoCampo(Campo::Concepto, valorTecleado); // throws Rechazo
//     lineEdit->setMaxLength(TamanoCampo(Campo::Concepto));

#include <QString>

enum class Campo {
    Concepto,        // Diario.Concepto, and every line description
    Documento,       // Diario.Documento
    Sector,          // Sectores.Sector, Diario.Sector
    NFactura,        // DatosIVA.NFactura
    NombreCuenta,    // Grupos.Grupo (an account of the chart)
    NombreSubcuenta, // Cuentas.Cuenta
    NIF,             // CliPro.NIF, Empresa.NIF
    Domicilio,       // CliPro.Domicilio, Empresa.Domicilio
    NumeroCalle,     // Empresa.Nº
    Municipio,       // CliPro.Municipio
    CPostal,         // CliPro.CPostal (a foreign customer's code may be longer than five)
    Provincia,       // CliPro.Provincia, Empresa.Provincia
    Pais,            // CliPro.Pais
    Telefono,        // CliPro.Tfn1, Tfn2
    Contacto,        // CliPro.Contacto
    Observaciones,   // CliPro.Observaciones
    NombreEmpresa,   // Empresa.Nombre, Nemp.dat
    NombreConcepto,  // Conceptos.Nombre (it becomes a line's Concepto)
    NombrePeriodico, // Periodicos.Nombre
    Usuario,         // Usuarios.Usuario
    NombrePredi,     // AsPredi.Nombre
    ComentarioPredi, // AsPredi.Coment
    NombreElemento,  // Inventario.Nombre
    Proveedor,       // Inventario.Proveedor (invoice and supplier)
    Localizacion,    // Centros.Localizacion
    Ciudad,          // Empresa.Ciudad
    CPostalEmpresa,  // Empresa.CPostal: five digits
    Remesa,          // Vencimientos.Remesa
    TextoAviso,      // Avisos.Texto
};

// Most characters the field holds.
int TamanoCampo(Campo campo);
// The field's name in messages: "Concepto", "Documento", "NIF"...
QString EtiquetaCampo(Campo campo);

// True when the text holds a control character (tab, line feed, carriage return, escape, bell,
// NUL, DEL, the C1 controls, or the Unicode line and paragraph separators).
bool TieneControles(const QString& texto);
// The text without its control characters: what a paste into a screen's box leaves.
QString SinControles(const QString& texto);

// "El campo <etiqueta> no admite tabuladores, saltos de línea ni otros caracteres de control."
QString MsgControles(const QString& etiqueta);

// The text as stored, trimmed, after refusing (Rechazo) a control character or a text longer than
// the field, with the field's name in the message:
//     "El campo Concepto no admite tabuladores, saltos de línea ni otros caracteres de control."
//     "El campo Concepto no puede tener más de 40 caracteres."
QString TextoCampo(Campo campo, const QString& texto);
