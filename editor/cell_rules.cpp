#include "editor/cell_rules.h"

#include <array>

#include "base/text.h"

namespace qor {

namespace {

template <typename UnaVentana>
auto& BuscarCelda(UnaVentana& ventana, LugarDeCelda lugar) {
    const auto i = static_cast<std::size_t>(lugar.linea);
    switch (lugar.columna) {
        case Columna::CampoDeArchivo: return ventana.archivo.campo[i];
        case Columna::Ancho: return ventana.archivo.ancho[i];
        case Columna::Programa: return ventana.transaccion.programa[i];
        case Columna::Dynpro: return ventana.transaccion.dynpro[i];
        case Columna::Campo: return ventana.transaccion.campo[i];
        case Columna::Valor: break;
    }
    return ventana.transaccion.valor[i];
}

using FuncionDeCambio = void (*)(Ventana&, LugarDeCelda, const std::string&);

void CambiarEnArchivo(Ventana& ventana, LugarDeCelda lugar, const std::string& texto, FuncionDeCambio otraVez) {
    ventana.documento.especificacion.TablaArchivo[FilaDe(ventana, lugar)].*ColumnaDeArchivo(lugar.columna) =
        TextoDeTabla(lugar.columna, texto);
    if (lugar.columna != Columna::CampoDeArchivo) return;
    ventana.DuplicadoRevisado = false;
    if (texto.size() > largoMaximoDeCampo) {
        ventana.vista.Advertir(Componer(ventana.textos, {333, " 30."}));
        otraVez(ventana, lugar, texto.substr(0, largoMaximoDeCampo));
    }
}

void CambiarEnTransaccion(Ventana& ventana, LugarDeCelda lugar, const std::string& texto) {
    ventana.documento.especificacion.TablaTransaccion[FilaDe(ventana, lugar)].*ColumnaDeTransaccion(lugar.columna) =
        TextoDeTabla(lugar.columna, texto);
    if (lugar.columna != Columna::Programa) return;
    const auto cortado = Recortar(texto);
    const Color color = cortado == "TRANS" || cortado == "BAPI" ? Color::Azul : Color::Negro;
    CeldaDe(ventana, lugar).color = color;
    CeldaDe(ventana, {Columna::Dynpro, lugar.linea}).color = color;
}

void Cambiar(Ventana& ventana, LugarDeCelda lugar, const std::string& texto, FuncionDeCambio otraVez) {
    CeldaDe(ventana, lugar).texto = texto;
    if (TablaDe(lugar.columna) == Tabla::Archivo) {
        CambiarEnArchivo(ventana, lugar, texto, otraVez);
    } else {
        CambiarEnTransaccion(ventana, lugar, texto);
    }
}

void GuardarFila(Ventana& ventana, LugarDeCelda lugar) {
    auto& documento = ventana.documento;
    const int fila = FilaDe(ventana, lugar);
    const int primera = fila - lugar.linea;
    if (TablaDe(lugar.columna) == Tabla::Archivo) {
        documento.GuardarDeshacer(
            {RegistroDeshacer::Paso::Cambio, lugar.linea, primera, documento.especificacion.TablaArchivo[fila]});
    } else {
        documento.GuardarDeshacer(
            {RegistroDeshacer::Paso::Cambio, lugar.linea, primera, documento.especificacion.TablaTransaccion[fila]});
    }
}

}  // namespace

int LineasDe(Columna columna) { return TablaDe(columna) == Tabla::Archivo ? lineasArchivo : lineasTransaccion; }

Celda& CeldaDe(Ventana& ventana, LugarDeCelda lugar) { return BuscarCelda(ventana, lugar); }
const Celda& CeldaDe(const Ventana& ventana, LugarDeCelda lugar) { return BuscarCelda(ventana, lugar); }
const std::string& TextoDe(const Ventana& ventana, LugarDeCelda lugar) { return CeldaDe(ventana, lugar).texto; }

int FilaDe(const Ventana& ventana, LugarDeCelda lugar) {
    const bool deArchivo = TablaDe(lugar.columna) == Tabla::Archivo;
    return lugar.linea + (deArchivo ? ventana.archivo.PrimeraFilaArchivo : ventana.transaccion.PrimeraFilaTransaccion);
}

std::string NombreDeControl(LugarDeCelda lugar) {
    constexpr std::array<const char*, 6> nombres = {"Text1_", "Text2_", "Text6_", "Text3_", "Text4_", "Text5_"};
    return nombres[static_cast<std::size_t>(lugar.columna)] + std::to_string(lugar.linea);
}

void EscribirEnCelda(Ventana& ventana, LugarDeCelda lugar, const std::string& texto) {
    if (TextoDe(ventana, lugar) == texto) return;
    GuardarFila(ventana, lugar);
    if (lugar.columna == Columna::Valor) ventana.aviso.clear();
    Cambiar(ventana, lugar, texto, EscribirEnCelda);
}

void PonerEnCelda(Ventana& ventana, LugarDeCelda lugar, const std::string& texto) {
    if (TextoDe(ventana, lugar) != texto) Cambiar(ventana, lugar, texto, PonerEnCelda);
}

}  // namespace qor
