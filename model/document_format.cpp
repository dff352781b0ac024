#include "model/document_format.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "base/failure.h"
#include "base/text.h"

namespace qor {

namespace {

using Campos = std::array<Valor, 10>;  // by field number less one; the tag's place stays empty

template <typename Fila, typename Columnas>
void AgregarFila(std::vector<Fila>& tabla, int& filas, const Columnas& columnas, const Campos& campos) {
    if (filas >= static_cast<int>(tabla.size())) throw FalloDeEjecucion("the document has more rows than the table holds");
    Fila& fila = tabla[static_cast<std::size_t>(filas++)];
    for (std::size_t c = 0; c < columnas.size(); ++c) fila.*columnas[c] = campos[c + 1].ComoTexto();
}

void FijarSiHay(int& opcion, const Valor& valor) {
    if (!valor.Vacio()) opcion = valor.ComoEntero();
}

void FijarModo(Opciones& opciones, const std::string& letra) {
    if (letra == "A" || letra == "N" || letra == "E") opciones.Modo = letra[0];
}

void LeerEntrada(Opciones& opciones, const Campos& campos) {
    opciones.Autofill = campos[1].ComoEntero();
    opciones.ClienteOp = !campos[2].ComoBooleano();
    opciones.TablaCh = campos[3].ComoEntero();
    opciones.FileParameterCh = campos[4].ComoEntero();
    opciones.CallTransaction = campos[5].ComoEntero();
    FijarModo(opciones, campos[6].ComoTexto());
    opciones.Programa = campos[7].ComoTexto();
    opciones.ArchivoFuente = campos[8].ComoTexto();
    if (!campos[9].Vacio()) opciones.AnchoFijo = campos[9].ComoBooleano();
}

void LeerDocumentacion(Opciones& opciones, const Campos& campos) {
    opciones.Functional = campos[1].ComoTexto();
    opciones.Technical = campos[2].ComoTexto();
    opciones.Description = campos[3].ComoTexto();
    opciones.Notes = campos[4].ComoTexto();
    opciones.DescripcionStatus = campos[5].ComoTexto();
    FijarSiHay(opciones.HScroll1, campos[6]);
    opciones.ModuleCombo = campos[7].ComoTexto();
    opciones.PrioridadCombo = campos[8].ComoTexto();
    opciones.TablaZ = campos[9].ComoTexto();
    if (EstaEnBlanco(opciones.TablaZ)) opciones.TablaZ = tablaZDeNuevo;
}

void LeerTitulos(Opciones& opciones, const Campos& campos) {
    opciones.DiaCheck = campos[1].ComoEntero();
    opciones.QORCheck = campos[2].ComoEntero();
    opciones.ArchivosCheck = campos[3].ComoEntero();
    opciones.TCodeCheck = campos[4].ComoEntero();
    opciones.StatusCheck = campos[5].ComoEntero();
    opciones.GeneracionAutomatica = campos[6].ComoTexto() != "M";
    opciones.NombreManual = campos[7].ComoTexto();
    opciones.ProcesarTodoOpt = campos[8].ComoTexto() != "P";
    opciones.SpaceCode = campos[9].ComoTexto();
}

void LeerOrigen(Especificacion& especificacion, Opciones& opciones, const Campos& campos) {
    especificacion.OrigenUsuario = campos[1].ComoBooleano();
    especificacion.OrigenVariables = campos[2].ComoTexto();
    especificacion.OrigenForms = campos[3].ComoTexto();
    especificacion.OrigenSource = campos[4].ComoTexto();
    especificacion.VariablesGlobales = campos[5].ComoTexto();
    opciones.MultipleFilesOption = campos[6].ComoTexto() != "O";
    opciones.Identificadores = campos[7].ComoTexto();
    FijarSiHay(opciones.ErrorHandlingCheck, campos[8]);
    FijarSiHay(opciones.SafeCallTransactionCheck, campos[9]);
}

void LeerPrograma(Opciones& opciones, const Campos& campos) {
    opciones.ProgID = campos[1].ComoTexto();
    FijarSiHay(opciones.ModeAsParameter, campos[2]);
    FijarSiHay(opciones.AddF4, campos[3]);
}

// One record: ten fields, the missing ones blank.
void AgregarRegistro(std::string& documento, int etiqueta, std::initializer_list<std::string> campos) {
    documento += std::to_string(etiqueta);
    for (const auto& campo : campos) documento += ',' + campo;
    for (std::size_t c = campos.size(); c < 9; ++c) documento += ",\"\"";
    documento += "\r\n";
}

std::string CampoEntero(int valor) { return std::to_string(valor); }

std::string CampoLetra(char letra) { return CampoTexto(std::string(1, letra)); }

}  // namespace

Formato LeerDocumento(LectorValores& lector, Especificacion& especificacion, Opciones& opciones, LineasDeDocumento* lineas) {
    LineasDeDocumento::Registro comienzos{};
    const auto anotar = [&](std::size_t campo) {
        if (lineas != nullptr) comienzos[campo] = lector.Linea();
    };
    int etiqueta = 999;
    int filasArchivo = 0;
    int filasTransaccion = 0;
    int filasCondiciones = 0;
    int filasBAPIs = 0;
    while (!lector.AlFinal() && etiqueta != 0) {
        anotar(0);
        etiqueta = lector.LeerEtiqueta();
        Campos campos;
        for (std::size_t c = 1; c < campos.size(); ++c) {
            anotar(c);
            campos[c] = lector.Leer();
        }
        if (lineas != nullptr) lineas->Anotar(etiqueta, comienzos);
        switch (etiqueta) {
            case 1: AgregarFila(especificacion.TablaArchivo, filasArchivo, columnasDeArchivo, campos); break;
            case 2: AgregarFila(especificacion.TablaTransaccion, filasTransaccion, columnasDeTransaccion, campos); break;
            case 3: LeerEntrada(opciones, campos); break;
            case 4: LeerDocumentacion(opciones, campos); break;
            case 5: LeerTitulos(opciones, campos); break;
            case 6: AgregarFila(especificacion.TablaCondiciones, filasCondiciones, columnasDeCondicion, campos); break;
            case 7: LeerOrigen(especificacion, opciones, campos); break;
            case 8: AgregarFila(especificacion.TablaBAPIs, filasBAPIs, columnasDeBAPI, campos); break;
            case 9: LeerPrograma(opciones, campos); break;
            default: break;  // a tag of another release is passed over with its fields
        }
    }
    const bool sinFilas = filasArchivo == 0 && filasTransaccion == 0;
    return etiqueta == 0 && sinFilas ? Formato::Antiguo : Formato::Actual;
}

void ImportarFormatoAntiguo(LectorValores& lector, Especificacion& especificacion, Opciones& opciones) {
    const auto comprobarFila = [](int fila) {
        if (fila >= filasTabla) throw FalloDeEjecucion("the document has more rows than the table holds");
    };
    lector.Leer();
    const std::string programa = lector.Leer().ComoTexto();
    especificacion.TablaTransaccion[0].programa = "TRANS";
    especificacion.TablaTransaccion[0].dynpro = programa;
    opciones.Programa = programa;

    for (int fila = 0;; ++fila) {
        std::string a = lector.Leer().ComoTexto();
        const Valor b = lector.Leer();
        const Valor c = lector.Leer();
        if (a == "End of file specification.") {
            opciones.ArchivoFuente = b.ComoTexto();
            FijarSiHay(opciones.FileParameterCh, c);
            break;
        }
        comprobarFila(fila);
        // The field's user code stands behind the first blank of its name.
        especificacion.TablaArchivo[fila] = {std::string(AntesDe(a, ' ')), b.ComoTexto(), c.ComoTexto(),
                                             std::string(DespuesDe(a, ' '))};
    }

    for (int fila = 1;; ++fila) {
        std::array<Valor, columnasDeTransaccion.size()> valores;
        for (auto& valor : valores) valor = lector.Leer();
        if (valores[0].ComoTexto() == "End of transaction specification.") {
            opciones.ClienteOp = !valores[1].ComoBooleano();
            opciones.CallTransaction = valores[2].ComoEntero();
            opciones.TablaCh = valores[3].ComoEntero();
            FijarModo(opciones, valores[4].ComoTexto());
            break;
        }
        comprobarFila(fila);
        for (std::size_t c = 0; c < valores.size(); ++c) {
            especificacion.TablaTransaccion[fila].*columnasDeTransaccion[c] = valores[c].ComoTexto();
        }
    }

    opciones.Functional = lector.Leer().ComoTexto();
    opciones.Technical = lector.Leer().ComoTexto();
    opciones.Description = lector.Leer().ComoTexto();
    opciones.Notes = lector.Leer().ComoTexto();
}

namespace {

// Number of rows up to the first one that ends the table, or up to the last one with text.
template <typename Fila, typename Acaba>
std::size_t FilasPorEscribir(const std::vector<Fila>& tabla, bool todas, Acaba acaba) {
    if (!todas) return static_cast<std::size_t>(std::find_if(tabla.begin(), tabla.end(), acaba) - tabla.begin());
    const auto ultima = std::find_if(tabla.rbegin(), tabla.rend(), [](const Fila& fila) { return fila != Fila{}; });
    return static_cast<std::size_t>(tabla.rend() - ultima);
}

std::string Escribir(const Especificacion& especificacion, const Opciones& opciones, bool todas) {
    std::string documento;
    const std::size_t filasArchivo =
        FilasPorEscribir(especificacion.TablaArchivo, todas, [](const FilaDeArchivo& fila) { return fila.campo.empty(); });
    for (std::size_t r = 0; r < filasArchivo; ++r) {
        const auto& fila = especificacion.TablaArchivo[r];
        AgregarRegistro(documento, 1,
                        {CampoTexto(fila.campo), CampoTexto(fila.ancho), CampoTexto(fila.nota), CampoTexto(fila.conversion)});
    }
    const std::size_t filasTransaccion =
        FilasPorEscribir(especificacion.TablaTransaccion, todas, [](const FilaDeTransaccion& fila) { return fila.SinNombres(); });
    for (std::size_t r = 0; r < filasTransaccion; ++r) {
        const auto& fila = especificacion.TablaTransaccion[r];
        AgregarRegistro(documento, 2,
                        {CampoTexto(fila.programa), CampoTexto(fila.dynpro), CampoTexto(fila.campo), CampoTexto(fila.valor),
                         CampoTexto(fila.nota)});
    }
    AgregarRegistro(documento, 3,
                    {CampoEntero(opciones.Autofill), CampoBooleano(opciones.ServidorOp()), CampoEntero(opciones.TablaCh),
                     CampoEntero(opciones.FileParameterCh), CampoEntero(opciones.CallTransaction), CampoLetra(opciones.Modo),
                     CampoTexto(Recortar(opciones.Programa)), CampoTexto(Minusculas(opciones.ArchivoFuente)),
                     CampoBooleano(opciones.AnchoFijo)});
    AgregarRegistro(documento, 4,
                    {CampoTexto(opciones.Functional), CampoTexto(opciones.Technical), CampoTexto(opciones.Description),
                     CampoTexto(opciones.Notes), CampoTexto(opciones.DescripcionStatus), CampoEntero(opciones.HScroll1),
                     CampoTexto(opciones.ModuleCombo), CampoTexto(opciones.PrioridadCombo), CampoTexto(opciones.TablaZ)});
    AgregarRegistro(
        documento, 5,
        {CampoEntero(opciones.DiaCheck), CampoEntero(opciones.QORCheck), CampoEntero(opciones.ArchivosCheck),
         CampoEntero(opciones.TCodeCheck), CampoEntero(opciones.StatusCheck), CampoLetra(opciones.GeneracionAutomatica ? 'A' : 'M'),
         CampoTexto(opciones.NombreManual), CampoLetra(opciones.ProcesarTodoOpt ? 'A' : 'P'), CampoTexto(opciones.SpaceCode)});
    for (int r = 0; r <= ultimaFila && !especificacion.TablaCondiciones[r].nombre.empty(); ++r) {
        const auto& fila = especificacion.TablaCondiciones[r];
        AgregarRegistro(documento, 6, {CampoTexto(fila.nombre), CampoTexto(fila.texto)});
    }
    AgregarRegistro(documento, 7,
                    {CampoBooleano(especificacion.OrigenUsuario), CampoTexto(especificacion.OrigenVariables),
                     CampoTexto(especificacion.OrigenForms), CampoTexto(especificacion.OrigenSource),
                     CampoTexto(especificacion.VariablesGlobales), CampoLetra(opciones.MultipleFilesOption ? 'M' : 'O'),
                     CampoTexto(opciones.Identificadores), CampoEntero(opciones.ErrorHandlingCheck),
                     CampoEntero(opciones.SafeCallTransactionCheck)});
    for (int r = 0; r < especificacion.FilasBAPIs(); ++r) {
        const auto& fila = especificacion.TablaBAPIs[r];
        AgregarRegistro(documento, 8, {CampoTexto(fila.nombre), CampoTexto(fila.llamada)});
    }
    AgregarRegistro(documento, 9,
                    {CampoTexto(opciones.ProgID), CampoEntero(opciones.ModeAsParameter), CampoEntero(opciones.AddF4)});
    return documento;
}

}  // namespace

std::string EscribirDocumento(const Especificacion& especificacion, const Opciones& opciones) {
    return Escribir(especificacion, opciones, false);
}

std::string EscribirTrabajo(const Especificacion& especificacion, const Opciones& opciones) {
    return Escribir(especificacion, opciones, true);
}

}  // namespace qor
