#include "sap/import.h"

#include <array>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "editor/grids.h"
#include "generator/conversions.h"

namespace qor {

namespace {

class LectorDeSesion {
public:
    LectorDeSesion(Especificacion& especificacion, std::string_view texto, int inicio, const std::function<void()>& malEscrita)
        : especificacion_(especificacion),
          malEscrita_(malEscrita),
          lineas_(PartirEnLineas(texto)),
          Inicio_(inicio),
          Fila_(inicio) {}

    void Leer() {
        while (siguiente_ < lineas_.size() && Fila_ <= ultimaFila) {
            std::string_view linea = LeerLinea();
            if (Tramo(linea, 41, 5) == "0000T") FormatoSesion_ = true;
            if (FormatoSesion_) {
                LeerRegistro(Mayusculas(linea));
            } else {
                LeerTextoDeGrabacion(linea);
            }
        }
    }

private:
    std::string_view LeerLinea() {
        if (siguiente_ >= lineas_.size()) throw FalloDeEjecucion("the recording ends inside a field");
        return lineas_[siguiente_++];
    }

    FilaDeTransaccion& Fila(int fila) {
        if (fila >= filasTabla) throw FalloDeEjecucion("the program side is full");
        return especificacion_.TablaTransaccion[fila];
    }

    std::string Primero(std::string_view linea) {
        auto primero = ExtraerPrimero(linea);
        if (primero.malEscrita) malEscrita_();
        return std::move(primero.texto);
    }

    // The first row of a transaction is left free for its head, whose code comes last.
    void ReservarCabecera() {
        if (Fila_ != Inicio_) return;
        Cabecera_ = Inicio_;
        ++Fila_;
    }

    // The three tests run one after the other, the last one on the last line read.
    void LeerTextoDeGrabacion(std::string_view linea) {
        const std::string mayusculas = Mayusculas(linea);
        if (Contiene(mayusculas, "BDC_DYNPRO")) LeerPantalla(linea);
        if (Contiene(mayusculas, "BDC_FIELD")) linea = LeerCampo(linea, Contiene(mayusculas, "BDC_SUBSCR"));
        if (Contiene(Mayusculas(linea), "BDC_TRANSACTION")) LeerTransaccion(linea);
    }

    void LeerPantalla(std::string_view linea) {
        ReservarCabecera();
        auto& fila = Fila(Fila_);
        fila.programa = Primero(linea);
        fila.dynpro = ExtraerSegundo(linea);
        ++Fila_;
    }

    std::string_view LeerCampo(std::string_view linea, bool esSubpantalla) {
        ReservarCabecera();
        auto& fila = Fila(Fila_);
        fila.campo = Primero(linea);
        linea = LeerLinea();
        fila.valor = "'" + Primero(linea);
        if (esSubpantalla) {
            linea = LeerLinea();
            fila.valor += Primero(linea);  // program and number touch
        }
        fila.valor += "'";
        ++Fila_;
        return linea;
    }

    void LeerTransaccion(std::string_view linea) {
        ReservarCabecera();
        auto& fila = Fila(Cabecera_);
        fila.programa = "TRANS";
        fila.dynpro = Primero(linea);
        // So an empty row separates two transactions.
        ++Fila_;
        Inicio_ = Fila_;
    }

    void LeerRegistro(std::string_view linea) {
        const auto campo = Recortar(Tramo(linea, 46, 132));
        auto& fila = Fila(Fila_);
        const auto clase = Tramo(linea, 45, 1);
        if (clase == "T") {
            fila.programa = "TRANS";
            fila.dynpro = campo;
        } else if (clase == "X") {
            fila.programa = Recortar(Tramo(linea, 1, 40));
            fila.dynpro = Recortar(Tramo(linea, 41, 4));
        } else if (clase == " ") {
            fila.campo = campo;
            fila.valor = "'" + ValorDeRegistro(linea) + "'";
        } else {
            return;
        }
        ++Fila_;
    }

    static std::string ValorDeRegistro(std::string_view linea) {
        if (Recortar(Tramo(linea, 46, 10)) != "BDC_SUBSCR") return std::string(Recortar(TramoDesde(linea, 178)));
        return std::string(Recortar(Tramo(linea, 178, 40))) + " " + std::string(Recortar(TramoDesde(linea, 218)));
    }

    Especificacion& especificacion_;
    const std::function<void()>& malEscrita_;
    std::vector<std::string_view> lineas_;
    std::size_t siguiente_ = 0;
    int Inicio_;
    int Fila_;
    int Cabecera_ = 0;
    bool FormatoSesion_ = false;
};

void VaciarTransacciones(Especificacion& especificacion) {
    for (int r = 0; r <= ultimaFila; ++r) especificacion.TablaTransaccion[r] = {};
}

// The row from which the import writes; -1 when the user backs out.
int ElegirInicio(Editor& editor) {
    int inicio = editor.especificacion.PrimeraPosicionLibreTransaccion();
    if (inicio > 0) {
        switch (editor.vista.Preguntar(Componer(editor.textos, {330, "\r\n", 331}), Botones::SiNoCancelar)) {
            case Respuesta::Si: inicio = 0; break;
            case Respuesta::No: break;
            default: return -1;
        }
    }
    if (inicio == 0) {
        editor.transaccion.PrimeraFilaTransaccion = 0;
        VaciarTransacciones(editor.especificacion);
    }
    return inicio;
}

void MostrarImportacion(Editor& editor) {
    // The cell that had the focus stands for another row now, which its leaving rule must not touch.
    editor.ventana.foco.reset();
    MostrarTransaccion(editor, 0);
    editor.busquedas.transaccion.siguiente = false;
    editor.ventana.SSTab1 = 0;
    editor.vista.Informar(Componer(editor.textos, {329}));
}

}  // namespace

void LeerSesion(Especificacion& especificacion, std::string_view texto, int inicio, const std::function<void()>& malEscrita) {
    LectorDeSesion(especificacion, texto, inicio, malEscrita).Leer();
}

bool ImportarSesion(Editor& editor, const std::string& archivo) {
    const bool antes = editor.RegistrarCambios;
    editor.RegistrarCambios = false;
    // The two early ends leave RegistrarCambios cleared, on purpose: no step to undo is made until it is set again.
    const int inicio = ElegirInicio(editor);
    if (inicio < 0) return false;
    if (EstaEnBlanco(archivo)) {
        editor.vista.Advertir(Componer(editor.textos, {332}));
        return false;
    }
    bool leido = false;
    try {
        const std::string texto = LeerArchivo(RutaDelSistema(archivo));
        LeerSesion(editor.especificacion, texto, inicio, [&] { editor.vista.Advertir(Componer(editor.textos, {372})); });
        MostrarImportacion(editor);
        editor.HayCambios = true;
        leido = true;
    } catch (const FalloDeEjecucion&) {
        editor.vista.Advertir(Componer(editor.textos, {335}));
    }
    editor.RegistrarCambios = antes;
    return leido;
}

}  // namespace qor
