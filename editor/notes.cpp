#include "editor/notes.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/chosen_path.h"
#include "base/key_filters.h"
#include "base/text.h"
#include "base/words.h"
#include "editor/grids.h"
#include "model/cells.h"
#include "model/one_file.h"
#include "model/operations.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeFilas = 2;  // digits

// Makes a row a head for a moment.
class CabezaDePrueba {
public:
    explicit CabezaDePrueba(std::string& celda) : celda_(celda), antes_(std::exchange(celda, "!1 1!2")) {}
    ~CabezaDePrueba() { celda_ = std::move(antes_); }
    CabezaDePrueba(const CabezaDePrueba&) = delete;
    CabezaDePrueba& operator=(const CabezaDePrueba&) = delete;

private:
    std::string& celda_;
    std::string antes_;
};

// The file fields that no other group than the row's own would use.
std::vector<DialogoDeNotas::Campo> CamposDeStep(Ventana& ventana, int fila) {
    auto& especificacion = ventana.documento.especificacion;
    const CabezaDePrueba cabeza(especificacion.TablaTransaccion[fila].nota);
    const auto operaciones = ActualizarOperaciones(especificacion, fila);
    const int propio = operaciones.OperacionFila(fila);
    std::vector<DialogoDeNotas::Campo> campos;
    for (int f = 0; f <= ultimaFila; ++f) {
        const std::string& campo = especificacion.TablaArchivo[f].campo;
        if (EstaEnBlanco(campo)) continue;
        const int grupo = operaciones.OperacionDeCampo(Recortar(campo));
        if (grupo == 0 || grupo == propio) campos.push_back({campo});
    }
    return campos;
}

void ElegirCampos(DialogoDeNotas& dialogo, std::string_view claves) {
    if (claves.starts_with(',')) claves.remove_prefix(1);
    while (!claves.empty()) {
        const auto nombre = AntesDe(claves, ',');
        for (auto& campo : dialogo.ListaCampos) {
            if (campo.nombre == nombre) campo.elegido = true;
        }
        claves = DespuesDe(claves, ',');
    }
}

void LeerMarcas(DialogoDeNotas& dialogo, const std::string& celda) {
    if (ValorDeMarca(celda, 1).empty()) {
        dialogo.NotaCampo = celda;
        return;
    }
    dialogo.NotaCampo = ExtraerMarca(celda, 0, 1);
    dialogo.Steploop = EsCabezaStepLoop(celda) ? 1 : 0;
    dialogo.NombreArchivo = ValorDeMarca(celda, 2);
    dialogo.NuevaOpt = Numero(ValorDeMarca(celda, 3)) == 1;
    dialogo.Descripcion = ValorDeMarca(celda, 4);
    dialogo.Pos1 = Numero(ValorDeMarca(celda, 5)) == 1;
    dialogo.Filas = ValorDeMarca(celda, 6);
    ElegirCampos(dialogo, ValorDeMarca(celda, 7));
}

std::string MarcasDe(const DialogoDeNotas& dialogo) {
    std::string marcas = "!1 1!2" + dialogo.NombreArchivo;
    marcas += dialogo.NuevaOpt ? "!31" : "!30";
    marcas += "!4" + Mayusculas(Recortar(dialogo.Descripcion));
    marcas += dialogo.Pos1 ? "!51" : "!50";
    marcas += "!6" + dialogo.Filas + "!7";
    for (const auto& campo : dialogo.ListaCampos) {
        if (campo.elegido) marcas += "," + campo.nombre;
    }
    return marcas;
}

std::string TituloDe(const Ventana& ventana, const std::string& campo) { return ventana.textos.Texto(92) + " " + campo; }

void Guardar(Ventana& ventana, FilaDeTabla fila, std::string& celda, const std::string& nueva) {
    if (celda == nueva) return;
    celda = nueva;
    ventana.documento.Cambiar();
    ColorearFila(ventana, fila);
}

bool FaltanDatosDeStep(Ventana& ventana, const DialogoDeNotas& dialogo) {
    if (dialogo.VerFilas() && EstaEnBlanco(dialogo.Filas)) {
        ventana.vista.Advertir(Componer(ventana.textos, {352}));
        ventana.vista.Enfocar("Filas");
        return true;
    }
    for (const auto& [texto, control] :
         {std::pair(&dialogo.NombreArchivo, "NombreArchivo"), {&dialogo.Descripcion, "Descripcion"}}) {
        if (texto->find('!') == std::string::npos) continue;
        ventana.vista.Advertir(MensajeDePalabra(ventana.textos, palabra::SignoDeMarcas));
        ventana.vista.Enfocar(control);
        return true;
    }
    const auto& campos = dialogo.ListaCampos;
    const bool hayElegidos = std::any_of(campos.begin(), campos.end(), [](const auto& campo) { return campo.elegido; });
    if (hayElegidos || dialogo.SinArchivoStep) return false;
    ventana.vista.Advertir(Componer(ventana.textos, {353, "\r\r", 375, "\r\r", 376, "\r\r", 377}));
    ventana.vista.Enfocar("ListaCampos");
    return true;
}

}  // namespace

DialogoDeNotas AbrirNotas(Ventana& ventana, FilaDeTabla lugar) {
    DialogoDeNotas dialogo;
    dialogo.fila = lugar;
    if (lugar.tabla == Tabla::Archivo) {
        const auto& fila = ventana.documento.especificacion.TablaArchivo[lugar.fila];
        dialogo.titulo = TituloDe(ventana, fila.campo);
        dialogo.NotaCampo = fila.nota;
        return dialogo;
    }
    const auto& fila = ventana.documento.especificacion.TablaTransaccion[lugar.fila];
    const auto operaciones = ActualizarOperaciones(ventana.documento.especificacion, lugar.fila);
    dialogo.titulo = TituloDe(ventana, fila.campo);
    dialogo.esBAPI = operaciones.TipoFilaConsultada == "BAPI";
    dialogo.EsStepLoop = Contiene(fila.campo, "(") && (!operaciones.FilaEnStepLoop(lugar.fila) || EsCabezaStepLoop(fila.nota));
    if (dialogo.EsStepLoop) {
        dialogo.SinArchivoStep = StepsSinArchivo(ventana.documento.especificacion, ventana.documento.opciones);
        dialogo.ListaCampos = CamposDeStep(ventana, lugar.fila);
    }
    LeerMarcas(dialogo, fila.nota);
    return dialogo;
}

bool CerrarNotas(Ventana& ventana, const DialogoDeNotas& dialogo) {
    const auto fila = static_cast<std::size_t>(dialogo.fila.fila);
    if (dialogo.fila.tabla == Tabla::Archivo) {
        Guardar(ventana, dialogo.fila, ventana.documento.especificacion.TablaArchivo[fila].nota, dialogo.NotaCampo);
        return true;
    }
    std::string nueva = dialogo.NotaCampo;
    if (dialogo.VerLista()) {
        if (FaltanDatosDeStep(ventana, dialogo)) return false;
        nueva += MarcasDe(dialogo);
    }
    Guardar(ventana, dialogo.fila, ventana.documento.especificacion.TablaTransaccion[fila].nota, nueva);
    return true;
}

char FiltrarTeclaDeNota(Ventana& ventana, const DialogoDeNotas& dialogo, char tecla) {
    if (tecla == '!') return teclaDescartada;
    if (tecla == '\r' && dialogo.fila.tabla == Tabla::Archivo) {
        ventana.vista.Advertir(Componer(ventana.textos, {354}));
        return teclaDescartada;
    }
    return FiltrarTecla("NotaCampo", tecla);
}

void CambiarFilas(DialogoDeNotas& dialogo, const std::string& texto) { dialogo.Filas = texto.substr(0, maximoDeFilas); }

void ExaminarStep(Ventana& ventana, DialogoDeNotas& dialogo) {
    const auto elegido = ComoTexto(ventana.vista.ElegirParaAbrir({ClaseDeArchivo::Entrada}), ventana.vista);
    if (elegido) dialogo.NombreArchivo = *elegido;
}

}  // namespace qor
