#include "app/FormEnsayo.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>
#include <array>
#include <exception>
#include <system_error>
#include <utility>

#include "app/input_files.h"
#include "app/qt/rehearsal_outcome.h"
#include "app/qt/rehearsal_records.h"
#include "app/qt/rehearsal_request.h"
#include "app/qt/rehearsal_sends.h"
#include "app/qt/theme_icon.h"
#include "app/qt/window_memory.h"
#include "app/rehearsal_lines.h"
#include "base/busy_pointer.h"
#include "base/failure.h"
#include "base/failure_trap.h"
#include "base/message_text.h"
#include "base/paths.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/words.h"
#include "input/layout.h"
#include "model/suggested_name.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr int rotuloDeAyuda = 132;
constexpr int milisegundosPorMirada = 100;
constexpr int altoSinAjustes = 620;  // of a screen on which the settings make way for what came of the run
constexpr const char* carpetaDeValores = "values";
constexpr const char* filtroDeDiario = "JSON Lines|*.jsonl";
constexpr const char* filtroDeTextos = "*.txt|*.txt";

QString Cifra(std::uint64_t numero) { return QLocale().toString(static_cast<qulonglong>(numero)); }

bool HayArchivo(const fs::path& ruta) {
    std::error_code ignorado;
    return fs::is_regular_file(ruta, ignorado);
}

// The view of the generation: what it warns of stands among the notices of the rehearsal, and only questions are asked.
class VistaDeNotas : public VistaDelegada {
public:
    using VistaDelegada::VistaDelegada;

    void Mostrar(const Mensaje& /*mensaje*/, Icono /*icono*/) override {}
    void MostrarFila(Tabla /*tabla*/, int /*fila*/) override {}
    void Enfocar(const std::string& /*control*/) override {}
    bool OfreceEditor() const override { return false; }
    bool AbrirEditor(const fs::path& /*ruta*/) override { return false; }
};

}  // namespace

FormEnsayo::FormEnsayo(EntornoDeEnsayo entorno) : Dialogo(entorno.textos, "FormEnsayo", nullptr), entorno_(std::move(entorno)) {
    setWindowTitle(Palabra(palabra::Ensayo));
    setWindowIcon(IconoDeTema("rehearse"));
    setModal(false);
    setWindowFlags(Qt::Window);
    setAttribute(Qt::WA_QuitOnClose, false);
    setSizeGripEnabled(false);
    pedido_ = new PanelDePedido(Textos(), entorno_.vista, this);
    auto* const orden = new QVBoxLayout(this);
    orden->setContentsMargins(8, 8, 8, 8);
    orden->setSpacing(6);
    orden->addWidget(pedido_);
    orden->addLayout(CrearMando());
    orden->addWidget(CrearVista(), 1);
    CrearTeclas();
    OrdenarFoco();
    connect(pedido_, &PanelDePedido::ArchivoElegido, this, [this](const QString& parametro, const QString& ruta) {
        entorno_.recordar(parametro.toStdString(), RutaDeQt(ruta.trimmed()));
    });
    connect(&reloj_, &QTimer::timeout, this, &FormEnsayo::MirarAvance);
    PonerDocumento();
    PonerTamano(170, 46);
    recuperado_ = RecuperarLugares(entorno_.memoria, *this);
    pedido_->EnfocarPrimero();
}

FormEnsayo::~FormEnsayo() {
    Detener();
    RecordarLugares(entorno_.memoria, *this);
    // What shows the result goes before it.
    MostrarResultado(nullptr);
}

// ---- Controls ----

QLayout* FormEnsayo::CrearMando() {
    correr_ = NuevoBoton("Correr", Palabra(palabra::BotonEnsayar));
    correr_->setIcon(IconoDeTema("rehearse"));
    correr_->setToolTip(QStringLiteral("F9"));
    detener_ = NuevoBoton("Detener", Palabra(palabra::Detener));
    avance_ = new QProgressBar(this);
    avance_->setObjectName(QStringLiteral("Avance"));
    avance_->setAccessibleName(Palabra(palabra::AvanceDelEnsayo));
    avance_->setTextVisible(false);
    avance_->setMaximumWidth(AnchoDeLetras(20));
    estado_ = NuevoRotulo("Estado", {});
    estado_->setTextFormat(Qt::PlainText);
    estado_->setWordWrap(true);
    estado_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    ajustes_ = NuevoBoton("MostrarAjustes", Palabra(palabra::Ajustes));
    ajustes_->setCheckable(true);
    ajustes_->setChecked(true);
    exportar_ = NuevoBoton("Exportar", Palabra(palabra::Exportar));
    menuDeExportar_ = new QMenu(this);
    menuDeExportar_->setObjectName(QStringLiteral("MenuDeExportar"));
    exportar_->setMenu(menuDeExportar_);
    ayuda_ = NuevaAyuda("Ayuda", Rotulo(rotuloDeAyuda), entorno_.ayuda, 0);
    cerrar_ = NuevoBoton("Cerrar", Palabra(palabra::Cerrar));
    connect(correr_, &QPushButton::clicked, this, &FormEnsayo::Correr);
    connect(detener_, &QPushButton::clicked, this, [this] {
        if (Corriendo()) ensayo_->Detener();
    });
    connect(ajustes_, &QPushButton::toggled, pedido_, &QWidget::setVisible);
    connect(menuDeExportar_, &QMenu::aboutToShow, this, &FormEnsayo::LlenarExportar);
    connect(cerrar_, &QPushButton::clicked, this, &QDialog::reject);
    auto* const fila = new QHBoxLayout;
    fila->addWidget(correr_);
    fila->addWidget(detener_);
    fila->addWidget(avance_);
    fila->addWidget(estado_, 1);
    for (auto* const boton : {ajustes_, exportar_, ayuda_, cerrar_}) fila->addWidget(boton);
    return fila;
}

QWidget* FormEnsayo::CrearVista() {
    registros_ = new PanelDeRegistros(Textos(), this);
    auto* const derecha = new QWidget(this);
    titulo_ = NuevoRotulo("TituloDelRegistro", {});
    titulo_->setParent(derecha);
    titulo_->setTextFormat(Qt::PlainText);
    titulo_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    envios_ = new ArbolDeEnvios(Textos(), derecha);
    auto* const ordenDerecho = new QVBoxLayout(derecha);
    ordenDerecho->setContentsMargins(0, 0, 0, 0);
    ordenDerecho->setSpacing(4);
    ordenDerecho->addWidget(titulo_);
    ordenDerecho->addWidget(envios_, 1);
    // As high as the filter at the left, so that both tables begin alike.
    titulo_->setMinimumHeight(registros_->findChild<QWidget*>(QStringLiteral("FiltroDeEstado"))->sizeHint().height());
    resultado_ = new PestanasDeResultado(Textos(), this);
    auto* const arriba = new QSplitter(Qt::Horizontal, this);
    arriba->setObjectName(QStringLiteral("DivisionDeRegistros"));
    arriba->setChildrenCollapsible(false);
    arriba->addWidget(registros_);
    arriba->addWidget(derecha);
    arriba->setStretchFactor(0, 2);
    arriba->setStretchFactor(1, 3);
    auto* const todo = new QSplitter(Qt::Vertical, this);
    todo->setObjectName(QStringLiteral("DivisionDeResultado"));
    todo->setChildrenCollapsible(false);
    todo->addWidget(arriba);
    todo->addWidget(resultado_);
    todo->setStretchFactor(0, 2);
    todo->setStretchFactor(1, 1);
    todo->setSizes({AltoDeLineas(24), AltoDeLineas(11)});
    connect(registros_, &PanelDeRegistros::Cambiado, this, &FormEnsayo::MostrarRegistro);
    connect(resultado_, &PestanasDeResultado::RegistroElegido, registros_, &PanelDeRegistros::Elegir);
    connect(resultado_, &PestanasDeResultado::FalloActivado, this, &FormEnsayo::VerFallo);
    connect(envios_, &ArbolDeEnvios::EntradaActivada, this, [this](const LineaDeEnvio& linea) {
        ConTrampa(entorno_.vista, [&] { VerEntrada(ensayo_->EntradaDe(linea.grupo, linea.deRegistro, linea.deArchivo)); });
    });
    connect(resultado_, &PestanasDeResultado::Activada, this, [this](const Lugar& celda) { entorno_.irA(celda); });
    connect(envios_, &ArbolDeEnvios::Activada, this, [this](const Lugar& celda) { entorno_.irA(celda); });
    connect(registros_->Tabla(), &QTableView::activated, this, [this] { VerRegistro(registros_->Elegido()); });
    return todo;
}

void FormEnsayo::CrearTeclas() {
    const auto tecla = [this](const QKeySequence& combinacion, auto accion) {
        connect(new QShortcut(combinacion, this), &QShortcut::activated, this, accion);
    };
    tecla(QKeySequence(Qt::Key_F9), [this] { Correr(); });
    tecla(QKeySequence(Qt::Key_F7), [this] { VerLoElegido(); });
    tecla(QKeySequence::Find, [this] { registros_->EnfocarBusqueda(); });
}

void FormEnsayo::OrdenarFoco() {
    QWidget* antes = pedido_;
    for (QWidget* const control : std::initializer_list<QWidget*>{correr_, detener_, ajustes_, exportar_, ayuda_, cerrar_}) {
        setTabOrder(antes, control);
        antes = control;
    }
}

void FormEnsayo::Habilitar() {
    const bool corriendo = Corriendo();
    const bool hay = !corriendo && ensayo_ != nullptr && ensayo_->Resultado().empezado;
    correr_->setEnabled(!corriendo);
    detener_->setEnabled(corriendo);
    pedido_->setEnabled(!corriendo);
    exportar_->setEnabled(hay);
    avance_->setVisible(corriendo);
    for (QWidget* const parte : std::initializer_list<QWidget*>{registros_, envios_, resultado_}) parte->setEnabled(!corriendo);
}

void FormEnsayo::Traer() {
    // A frame has to find room too.
    if (!recuperado_ && !testAttribute(Qt::WA_WState_Created) && height() >= screen()->availableSize().height() - AltoDeLineas(2)) {
        setWindowState(Qt::WindowMaximized);
    }
    show();
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

// ---- The document ----

void FormEnsayo::MirarDocumento() {
    if (Corriendo()) return;
    const auto& documento = entorno_.documento;
    if (documento.ruta != documento_) return PonerDocumento();
    if (documento.Revision() == revision_) return;
    revision_ = documento.Revision();
    const DisenoDeEntrada diseno(documento.especificacion, documento.opciones);
    std::vector<std::string> parametros;
    for (const auto& archivo : diseno.Archivos()) parametros.push_back(archivo.nombre);
    if (parametros != parametros_) PonerArchivos();
}

void FormEnsayo::TomarArchivo(const std::string& parametro, const fs::path& ruta) {
    if (!Corriendo() && entorno_.documento.ruta == documento_) pedido_->PonerArchivo(parametro, ruta);
}

void FormEnsayo::PonerDocumento() {
    documento_ = entorno_.documento.ruta;
    pedido_->Reiniciar();
    revision_ = entorno_.documento.Revision();
    setWindowTitle(Palabra(palabra::Ensayo) +
                   (documento_.empty() ? QString() : QStringLiteral(" - ") + NombreQt(documento_.filename())));
    MostrarResultado(nullptr);
    ensayo_.reset();
    PonerArchivos();
    const auto valores = documento_.parent_path() / carpetaDeValores;
    std::error_code ignorado;
    pedido_->PonerValores(!documento_.empty() && fs::is_directory(valores, ignorado) ? valores : fs::path());
    PonerEstado({});
    Habilitar();
}

void FormEnsayo::PonerArchivos() {
    const auto& documento = entorno_.documento;
    const DisenoDeEntrada diseno(documento.especificacion, documento.opciones);
    std::vector<ArchivoPedido> archivos;
    parametros_.clear();
    for (const auto& archivo : diseno.Archivos()) {
        parametros_.push_back(archivo.nombre);
        auto ruta = entorno_.recordado(archivo.nombre);
        if (!HayArchivo(ruta)) ruta = ArchivoDelDocumento(documento, static_cast<int>(archivos.size()));
        archivos.push_back({archivo.nombre, ruta});
    }
    pedido_->PonerArchivos(archivos);
    if (!documento_.empty()) pedido_->PonerTablas(TablasDeCarpeta(documento_.parent_path()));
}

// ---- The run ----

void FormEnsayo::Correr() {
    if (Corriendo()) return;
    entorno_.mandar([this] {
        MirarDocumento();
        PedidoDeEnsayo pedido;
        if (LeerPedido(pedido)) Empezar(std::move(pedido));
    });
}

bool FormEnsayo::LeerPedido(PedidoDeEnsayo& pedido) {
    const auto rehusar = [this](int frase, const fs::path& ruta) {
        std::error_code ignorado;
        if (frase == palabra::NoExisteElArchivo && fs::is_directory(ruta, ignorado)) {
            entorno_.vista.Advertir(SobreArchivo(MensajeDePalabra(Textos(), palabra::EsUnaCarpeta), ruta));
            return false;
        }
        entorno_.vista.Advertir(MensajeDePalabra(Textos(), frase, {TextoDelModelo(NombreQt(ruta))}));
        return false;
    };
    PanelDePedido::Pedido elegido;
    if (!pedido_->Leer(elegido)) return false;
    pedido.tramo = elegido.tramo;
    pedido.fallos = std::move(elegido.fallos);
    pedido.parametros = std::move(elegido.parametros);
    for (const auto& archivo : pedido_->Archivos()) {
        if (!archivo.ruta.empty() && !HayArchivo(archivo.ruta)) return rehusar(palabra::NoExisteElArchivo, archivo.ruta);
        pedido.archivos.push_back(archivo.ruta);
        entorno_.recordar(archivo.parametro, archivo.ruta);
    }
    pedido.sistema = entorno_.sistema();
    pedido.sistema.valores = pedido_->Valores();
    const bool propios = pedido.sistema.valores.empty();
    if (propios) pedido.sistema.valores = entorno_.valoresPropios;
    for (const auto& [nombre, archivo] : elegido.tablas) {
        const auto ruta = documento_.parent_path() / RutaDelSistema(archivo);
        if (!HayArchivo(ruta)) return rehusar(palabra::NoExisteElArchivo, ruta);
        pedido.sistema.tablas.emplace_back(nombre, ruta);
    }
    std::error_code ignorado;
    if (!propios && !fs::is_directory(pedido.sistema.valores, ignorado)) {
        return rehusar(palabra::NoExisteLaCarpeta, pedido.sistema.valores);
    }
    if (pedido_->EnArchivoPropio()) pedido.sistema.archivo = entorno_.archivoPropio();
    if (!documento_.empty()) {
        pedido.sistema.carpeta = documento_.parent_path();
        pedido.sistema.ajenos.push_back(documento_);
    }
    return true;
}

void FormEnsayo::Empezar(PedidoDeEnsayo pedido) {
    MostrarResultado(nullptr);
    const auto& tramo = pedido.tramo;
    const bool contado = !tramo.Todos() && tramo.hasta - tramo.desde < std::size_t{1'000'000'000};
    avance_->setRange(0, contado ? static_cast<int>(tramo.hasta - tramo.desde + 1) : 0);
    avance_->setValue(0);
    VistaDeNotas vista(entorno_.vista);
    ensayo_ = std::make_unique<Ensayo>(entorno_.generacion(vista), std::move(pedido));
    falloDelHilo_.reset();
    listo_ = false;
    comienzo_ = std::chrono::steady_clock::now();
    hilo_ = std::jthread([this] {
        try {
            ensayo_->Correr();
        } catch (const std::exception& fallo) {
            falloDelHilo_ = FalloDe(fallo);
        }
        listo_ = true;
    });
    reloj_.start(milisegundosPorMirada);
    Habilitar();
    MirarAvance();
    detener_->setFocus();
}

void FormEnsayo::Detener() {
    if (!Corriendo()) return;
    ensayo_->Detener();
    Terminar();
}

void FormEnsayo::MirarAvance() {
    if (!Corriendo()) return;
    if (listo_) return Terminar();
    if (avance_->maximum() > 0) avance_->setValue(std::min(static_cast<int>(ensayo_->Empezados()), avance_->maximum()));
    if (ensayo_->Empezados() == 0) return PonerEstado(Palabra(palabra::SeLeenLosArchivosDeEntrada));
    const std::chrono::duration<double> segundos = std::chrono::steady_clock::now() - comienzo_;
    PonerEstado(Palabra(palabra::CuentaDelEnsayoEnMarcha)
                    .arg(Cifra(ensayo_->Empezados()), Cifra(ensayo_->Fallados()), QLocale().toString(segundos.count(), 'f', 1)));
}

void FormEnsayo::Terminar() {
    reloj_.stop();
    hilo_.join();
    hilo_ = {};
    Habilitar();
    MostrarResultado(&ensayo_->Resultado());
    const auto& resultado = ensayo_->Resultado();
    const auto& cuenta = resultado.cuenta;
    if (falloDelHilo_) {
        PonerEstado(Palabra(palabra::ElEnsayoFallo).arg(QString::fromStdString(EnPantalla(*falloDelHilo_, Textos()))));
    } else if (!resultado.empezado) {
        PonerEstado(Palabra(palabra::ElReportNoSeEjecuto));
    } else {
        QStringList partes{Palabra(cuenta.registros == 1 ? palabra::CuentaDeUnRegistroLeido : palabra::CuentaDeRegistrosLeidos)
                               .arg(Cifra(cuenta.registros))};
        constexpr std::array deVarios = {std::pair{EstadoDeRegistro::Contabilizado, palabra::CuentaDeContabilizados},
                                         std::pair{EstadoDeRegistro::EnSesion, palabra::CuentaEnJuegoDeDatos},
                                         std::pair{EstadoDeRegistro::Fallado, palabra::CuentaDeFallados}};
        for (const auto& [estado, palabras] : deVarios) {
            const auto cuantos = registros_->Registros().CuantosEn(estado);
            if (cuantos == 1)
                partes << Cifra(cuantos) + QLatin1Char(' ') + PalabraDe(Textos(), estado);
            else if (cuantos > 1)
                partes << Palabra(palabras).arg(Cifra(cuantos));
        }
        if (resultado.volcado) partes << Palabra(palabra::Volcado);
        if (resultado.detenido) partes << Palabra(palabra::Detenido);
        PonerEstado(partes.join(QStringLiteral(", ")));
    }
    if (screen()->availableSize().height() < altoSinAjustes) ajustes_->setChecked(false);
    if (resultado.registros.empty()) {
        resultado_->setFocus();
    } else {
        registros_->Tabla()->setFocus();
    }
}

void FormEnsayo::PonerEstado(const QString& texto) {
    estado_->setText(texto);
    estado_->setToolTip(texto);
}

bool FormEnsayo::PuedeCerrar() {
    Detener();
    return true;
}

// ---- What came of it ----

void FormEnsayo::MostrarResultado(const ResultadoDeEnsayo* resultado) {
    std::vector<LineaDeTotal> totales;
    if (resultado != nullptr) totales = TotalesDe(*resultado, entorno_.documento.especificacion);
    resultado_->Poner(resultado, totales);
    registros_->Poner(resultado);
    if (resultado == nullptr) MostrarRegistro();
}

void FormEnsayo::MostrarRegistro() {
    const auto registro = Corriendo() || ensayo_ == nullptr ? 0 : registros_->Elegido();
    std::vector<LineaDeEnvio> lineas;
    QString titulo;
    if (registro > 0) {
        const auto estado = ensayo_->Resultado().registros.at(registro - 1);
        titulo = Palabra(palabra::RegistroConEstado).arg(Cifra(registro), PalabraDe(Textos(), estado));
        ConTrampa(entorno_.vista,
                  [&] { lineas = LineasDe(ensayo_->EnviosDe(registro), registros_->Registros().Culpables(registro)); });
        if (lineas.empty()) {
            titulo += QStringLiteral(". ") +
                      (estado == EstadoDeRegistro::SinLlegar ? Palabra(palabra::NoSeProceso) : Palabra(palabra::NoEnvioNada));
        }
    }
    titulo_->setText(titulo);
    titulo_->setToolTip(titulo);
    envios_->Poner(std::move(lineas));
}

// ---- In the input files ----

void FormEnsayo::VerEntrada(const std::optional<LugarDeEntrada>& lugar) {
    if (!lugar) return;
    std::vector<fs::path> archivos;
    for (const auto& archivo : pedido_->Archivos()) archivos.push_back(archivo.ruta);
    entorno_.verDatos(archivos, *lugar, this);
}

// Of a value that comes from no file the cell is shown.
void FormEnsayo::VerFallo(std::size_t fallo) {
    const auto& suyo = ensayo_->Resultado().fallos.at(fallo);
    if (suyo.entrada) return VerEntrada(suyo.entrada);
    if (suyo.celda.parte != Lugar::Parte::Ninguna) return entorno_.irA(suyo.celda);
    VerRegistro(suyo.registro);
}

// At the value that made it fail, else at its line.
void FormEnsayo::VerRegistro(std::size_t registro) {
    if (registro == 0) return;
    const auto* const fallo = registros_->Registros().Fallo(registro);
    if (fallo != nullptr && fallo->entrada) return VerEntrada(fallo->entrada);
    ConTrampa(entorno_.vista, [&] {
        const auto entrada = ensayo_->EntradaDe(0, registro, {});
        entrada ? VerEntrada(entrada) : envios_->setFocus();
    });
}

void FormEnsayo::VerLoElegido() {
    if (Corriendo() || ensayo_ == nullptr) return;
    if (const auto fallo = resultado_->FalloConFoco()) return VerFallo(*fallo);
    const auto* const linea = envios_->hasFocus() ? envios_->Actual() : nullptr;
    if (linea == nullptr || linea->deRegistro == 0) return VerRegistro(registros_->Elegido());
    ConTrampa(entorno_.vista, [&] { VerEntrada(ensayo_->EntradaDe(linea->grupo, linea->deRegistro, linea->deArchivo)); });
}

// ---- Export ----

void FormEnsayo::LlenarExportar() {
    menuDeExportar_->clear();
    menuDeExportar_
        ->addAction(Palabra(palabra::ElDiario), this,
                    [this] {
                        Exportar({ClaseDeArchivo::Diario, filtroDeDiario, {}, Sugerido(".jsonl")},
                                 [this](const fs::path& archivo) { ensayo_->ExportarDiario(archivo); });
                    })
        ->setObjectName(QStringLiteral("ExportarDiario"));
    auto* const fallados = menuDeExportar_->addAction(Palabra(palabra::LosRegistrosFallados), this, [this] { ExportarFallados(); });
    fallados->setObjectName(QStringLiteral("ExportarFallados"));
    fallados->setEnabled(ensayo_->Resultado().cuenta.fallados > 0 && !parametros_.empty());
    std::vector<std::string> sesiones;
    ConTrampa(entorno_.vista, [&] { sesiones = ensayo_->Sesiones(); });
    if (sesiones.empty()) return;
    menuDeExportar_->addSeparator();
    for (std::size_t n = 0; n < sesiones.size(); ++n) {
        const QString letra = (n < 9 ? QStringLiteral("&%1  ") : QStringLiteral("%1  ")).arg(n + 1);
        menuDeExportar_->addAction(letra + Palabra(palabra::ElJuegoDeDatos).arg(ComoRotulo(TextoQt(sesiones[n]))), this,
                                   [this, n, final = "-" + ComoNombreDeArchivo(sesiones[n]).string() + ".txt"] {
                                       Exportar({ClaseDeArchivo::JuegoDeDatos, filtroDeTextos, {}, Sugerido(final)},
                                                [this, n](const fs::path& archivo) { ensayo_->ExportarSesion(n, archivo); });
                                   });
    }
}

fs::path FormEnsayo::Sugerido(const std::string& final) const { return NombreSugerido(entorno_.documento, final, Textos()); }

void FormEnsayo::Exportar(const PedidoDeArchivo& pedido, const std::function<void(const fs::path&)>& accion) {
    if (const auto archivo = entorno_.vista.ElegirParaGrabar(pedido); archivo && Escribir([&] { accion(*archivo); })) {
        PonerEstado(Palabra(palabra::Escrito).arg(NombreQt(*archivo)));
    }
}

bool FormEnsayo::Escribir(const std::function<void()>& accion) {
    try {
        const ConPunteroOcupado puntero(entorno_.vista);
        accion();
        return true;
    } catch (const FalloDeArchivo& fallo) {
        entorno_.vista.Advertir(ConDetalle(MensajeDePalabra(Textos(), palabra::LaExportacionFallo), fallo));
    } catch (const FalloDeEjecucion& fallo) {
        Mensaje aviso = MensajeDePalabra(Textos(), palabra::LaExportacionFallo);
        aviso.detalle = EnPantalla(FalloDe(fallo), Textos());
        entorno_.vista.Advertir(aviso);
    }
    return false;
}

// The dialog has asked about the chosen file; the others, whose names are made up beside it, are asked about here.
bool FormEnsayo::PuedenReemplazarse(const std::vector<fs::path>& archivos) {
    QStringList presentes;
    for (const auto& archivo : archivos) {
        if (Existe(archivo)) presentes << NombreQt(archivo.filename());
    }
    if (presentes.isEmpty()) return true;
    const auto pregunta =
        MensajeDePalabra(Textos(), palabra::ReemplazarLosDeAlLado, {TextoDelModelo(presentes.join(QStringLiteral(", ")))});
    return entorno_.vista.Preguntar(pregunta, Botones::SiNo) == Respuesta::Si;
}

void FormEnsayo::ExportarFallados() {
    const auto elegido =
        entorno_.vista.ElegirParaGrabar({ClaseDeArchivo::RegistrosFallados, filtroDeTextos, {}, Sugerido("-failed.txt")});
    if (!elegido) return;
    const auto archivos = ensayo_->ArchivosDeFallados(*elegido);
    if (!PuedenReemplazarse({archivos.begin() + 1, archivos.end()})) return;
    if (!Escribir([&] { ensayo_->ExportarFallados(*elegido); })) return;
    if (archivos.size() == 1) return PonerEstado(Palabra(palabra::Escrito).arg(NombreQt(archivos.front())));
    QStringList escritos;
    for (const auto& archivo : archivos) escritos << NombreQt(archivo.filename());
    PonerEstado(Palabra(palabra::Escrito).arg(escritos.join(QStringLiteral(", "))));
}

}  // namespace qor
