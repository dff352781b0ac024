#pragma once

// The numbers of the words that forms, findings and messages are made of, besides the numbered messages below 1000. Their texts are
// records of the language file, and every language has them under the same numbers: a new word gets the next free number here, and
// a record in each language there.
namespace qor::palabra {

// About the language itself; a language without them gets none from another.
inline constexpr int CodigoDelIdioma = 1000;  // "es", "pt_BR": by it the toolkit's own words are found
inline constexpr int NombreDelIdioma = 1001;  // in its own words, with the letter of its key

// Buttons of message boxes
inline constexpr int Aceptar = 1010;
inline constexpr int Si = 1011;
inline constexpr int No = 1012;
inline constexpr int Cerrar = 1013;
inline constexpr int Recuperar = 1014;
inline constexpr int Descartar = 1015;
inline constexpr int MasTarde = 1016;

// Copies of unsaved work
inline constexpr int QuedoTrabajoSinGuardar = 1017;
inline constexpr int UnDocumentoNuevo = 1018;
inline constexpr int NoSePuedeCopiarElTrabajo = 1019;

// Main form: menus
inline constexpr int MenuEdicion = 1020;
inline constexpr int Deshacer = 1021;
inline constexpr int SubirElCampo = 1022;
inline constexpr int BajarElCampo = 1023;
inline constexpr int InsertarUnaFila = 1024;
inline constexpr int BorrarLaFila = 1025;
inline constexpr int OrdenNota = 1026;
inline constexpr int OrdenCodigoDeConversion = 1027;
inline constexpr int OrdenBuscar = 1028;
inline constexpr int VariablesYDefiniciones = 1029;
inline constexpr int OrdenHallazgos = 1030;
inline constexpr int HallazgoSiguiente = 1031;
inline constexpr int HallazgoAnterior = 1032;
inline constexpr int VistaPreviaDeLasEstructuras = 1033;
inline constexpr int OrdenVistaDeLosDatos = 1034;
inline constexpr int OrdenConectar = 1035;
inline constexpr int OrdenDesconectar = 1036;
inline constexpr int OrdenGuardarUnaGrabacion = 1037;

// Main form: tool bar and grids
inline constexpr int Herramientas = 1038;
inline constexpr int Fila = 1039;
inline constexpr int Filas = 1040;
inline constexpr int DobleClicALaPrimeraFila = 1041;
inline constexpr int DarMasEspacioALosCampos = 1042;
inline constexpr int ArrastreAUnValor = 1043;
inline constexpr int ArrastrarComoOKCode = 1044;
inline constexpr int CodigoDeConversionDelCampo = 1045;
inline constexpr int TextoABuscar = 1046;

// Main form: findings
inline constexpr int Hallazgos = 1047;
inline constexpr int CuentaDeUnError = 1048;
inline constexpr int CuentaDeErrores = 1049;
inline constexpr int CuentaDeUnAviso = 1050;
inline constexpr int CuentaDeAvisos = 1051;
inline constexpr int CuentaDeUnaNota = 1052;
inline constexpr int CuentaDeNotas = 1053;
inline constexpr int PuedeHaberMasDetras = 1054;
inline constexpr int NoSePuedenDeterminarLosHallazgos = 1055;
inline constexpr int SinHallazgos = 1056;
inline constexpr int Gravedad = 1057;
inline constexpr int Codigo = 1058;
inline constexpr int Lugar = 1059;
inline constexpr int Texto = 1060;
inline constexpr int Error = 1061;
inline constexpr int Advertencia = 1062;
inline constexpr int Nota = 1063;
inline constexpr int LadoEspecificacion = 1064;
inline constexpr int LadoDelArchivo = 1065;
inline constexpr int LadoDelPrograma = 1066;
inline constexpr int LadoCondiciones = 1067;
inline constexpr int LadoBAPIs = 1068;
inline constexpr int LadoDefinicionesGlobales = 1069;
inline constexpr int LadoDeclaracionesDelOrigen = 1070;
inline constexpr int LadoRutinasDelOrigen = 1071;
inline constexpr int LadoCodigoDelOrigen = 1072;
inline constexpr int LadoOpcion = 1073;
inline constexpr int LadoAjuste = 1074;
inline constexpr int ColumnaCampo = 1075;
inline constexpr int ColumnaAncho = 1076;
inline constexpr int ColumnaNota = 1077;
inline constexpr int ColumnaConversion = 1078;
inline constexpr int ColumnaPrograma = 1079;
inline constexpr int ColumnaDynpro = 1080;
inline constexpr int ColumnaValor = 1081;
inline constexpr int ColumnaNombre = 1082;
inline constexpr int ColumnaTexto = 1083;
inline constexpr int ColumnaTextoDeLlamada = 1084;
inline constexpr int FilaNumero = 1085;
inline constexpr int LineaNumero = 1086;

// Main form: options
inline constexpr int Contabilizacion = 1087;
inline constexpr int TratamientoDeErrores = 1088;
inline constexpr int SinAdicion = 1089;
inline constexpr int OtraAdicion = 1090;
inline constexpr int VariablesGlobales = 1091;
inline constexpr int NumerosGlobales = 1092;
inline constexpr int TablasInternasGlobales = 1093;
inline constexpr int VariablesYParametrosLocales = 1094;
inline constexpr int NumerosLocales = 1095;
inline constexpr int TablasInternasLocales = 1096;
inline constexpr int ConstantesGlobales = 1097;
inline constexpr int ParametrosDeLaPantalla = 1098;
inline constexpr int ParametrosNumericosDeLaPantalla = 1099;
inline constexpr int PrioridadAlta = 1100;
inline constexpr int PrioridadMedia = 1101;
inline constexpr int PrioridadBaja = 1102;

// Directories
inline constexpr int DirectoriosYArchivos = 1103;
inline constexpr int DirectorioDeLosDocumentos = 1104;
inline constexpr int ArchivoDeLosAnchosDeCampos = 1105;
inline constexpr int CatalogoDeBAPIs = 1106;
inline constexpr int EditorDeTextosParaLosReports = 1107;
inline constexpr int UnoConocidoQueEsteInstalado = 1108;

// Help window
inline constexpr int Ayuda = 1109;
inline constexpr int Atras = 1110;
inline constexpr int Adelante = 1111;
inline constexpr int Contenido = 1112;
inline constexpr int EstaPaginaNoEstaInstalada = 1113;

// Dialogs: data source
inline constexpr int OrigenDeDatos = 1114;
inline constexpr int LosDatosProvienenDeMiCodigo = 1115;
inline constexpr int RotuloDeclaraciones = 1116;
inline constexpr int RotuloRutinas = 1117;
inline constexpr int RotuloCodigoQueLee = 1118;
inline constexpr int ModelosDeCodigo = 1119;
inline constexpr int TablaInterna = 1120;
inline constexpr int BotonLeerUnArchivo = 1121;
inline constexpr int OpenSQL = 1122;
inline constexpr int SQLNativo = 1123;
inline constexpr int BotonVistaPrevia = 1124;
inline constexpr int BotonBorrar = 1125;
inline constexpr int ArchivoALeer = 1126;
inline constexpr int ArchivoDeEstacionAnchoFijo = 1127;
inline constexpr int ArchivoDeEstacionTabuladores = 1128;
inline constexpr int ArchivoDelServidor = 1129;
inline constexpr int BorrarElOrigenDeDatos = 1130;
inline constexpr int CasillaDeclaraciones = 1131;
inline constexpr int CasillaRutinas = 1132;
inline constexpr int CasillaCodigoQueLee = 1133;

// Dialogs: data preview
inline constexpr int VistaDeLosDatos = 1134;
inline constexpr int SinArchivoNoHayDatosQueMostrar = 1135;
inline constexpr int RotuloArchivo = 1136;
inline constexpr int Recargar = 1137;
inline constexpr int IrALaLinea = 1138;
inline constexpr int EjemploDeNumero = 1139;
inline constexpr int NoSeEligioNingunArchivo = 1140;
inline constexpr int ArchivosDeEntrada = 1141;
inline constexpr int RegistrosPrincipales = 1142;
inline constexpr int StepLoop = 1143;
inline constexpr int RegistrosDelArchivo = 1144;
inline constexpr int Registro = 1145;
inline constexpr int Linea = 1146;
inline constexpr int DetrasDelUltimoCampo = 1147;
inline constexpr int CampoDeColumnaAColumna = 1148;
inline constexpr int CampoConAncho = 1149;
inline constexpr int ReglaSobreLaLinea = 1150;
inline constexpr int BordeDelCampo = 1151;
inline constexpr int ColumnaNumero = 1152;
inline constexpr int ColumnaMarcada = 1153;
inline constexpr int ElArchivoEstaVacio = 1154;
inline constexpr int Contando = 1155;
inline constexpr int ElArchivoHaCambiado = 1156;
inline constexpr int ElLadoDelArchivoNoTieneCampos = 1157;
inline constexpr int CamposDeLaCabecera = 1158;
inline constexpr int CamposDeLasMarcas = 1159;
inline constexpr int LaPrimeraLineaNoTieneTabuladores = 1160;
inline constexpr int TabuladoresSoloDeLaEstacion = 1161;
inline constexpr int LeerDesdeAhoraPorTabuladores = 1162;
inline constexpr int LosAnchosSonDeLosValoresLargos = 1163;
inline constexpr int BotonControlesDelCampo = 1164;
inline constexpr int ControlesDelCampo = 1165;
inline constexpr int NingunCampo = 1166;
inline constexpr int Obligatorio = 1167;
inline constexpr int Tipo = 1168;
inline constexpr int TipoCualquierTexto = 1169;
inline constexpr int TipoNumero = 1170;
inline constexpr int TipoFecha = 1171;
inline constexpr int SignoDecimal = 1172;
inline constexpr int DecimalConPunto = 1173;
inline constexpr int DecimalConComa = 1174;
inline constexpr int FormaDeLaFecha = 1175;
inline constexpr int Patron = 1176;
inline constexpr int Valores = 1177;
inline constexpr int PorEjemplo = 1178;
inline constexpr int ArchivoDeValoresAdmitidos = 1179;
inline constexpr int ComoSeEscribeUnaFecha = 1180;
inline constexpr int ElPatronNoSePuedeUsar = 1181;
inline constexpr int GuardarLosControles = 1182;
inline constexpr int NoSePuedenLeerLosControles = 1183;
inline constexpr int GuardarAntesElDocumento = 1184;
inline constexpr int NoSePuedenGuardarLosControles = 1185;
inline constexpr int GuardarLosControlesCambiados = 1186;
inline constexpr int Revisar = 1187;
inline constexpr int AvanceDeLaRevision = 1188;
inline constexpr int Anterior = 1189;
inline constexpr int Siguiente = 1190;
inline constexpr int Indicio = 1191;
inline constexpr int CuentaDeUnIndicio = 1192;
inline constexpr int CuentaDeIndicios = 1193;
inline constexpr int SeMuestranSoloAlgunos = 1194;
inline constexpr int Revisando = 1195;
inline constexpr int NoSeRevisaronHastaElFinal = 1196;
inline constexpr int NoSePuedenRevisarLosArchivos = 1197;
inline constexpr int Archivo = 1198;
inline constexpr int Campo = 1199;
inline constexpr int Valor = 1200;
inline constexpr int QueEstaMal = 1201;
inline constexpr int LaLineaTerminaAntesDelCampo = 1202;
inline constexpr int SePierdeLoDetrasDelRegistro = 1203;
inline constexpr int TabuladoresDeMas = 1204;
inline constexpr int TabuladoresDeMenos = 1205;
inline constexpr int UnByteNoTieneCaracter = 1206;
inline constexpr int ElArchivoEstaEnUTF8 = 1207;
inline constexpr int UnaMarcaDeOrdenDeBytes = 1208;
inline constexpr int AquiHayUnNUL = 1209;
inline constexpr int LaLineaTerminaDeOtroModo = 1210;
inline constexpr int LaUltimaLineaNoTieneFin = 1211;
inline constexpr int LaLineaNoEmpiezaConIdentificador = 1212;
inline constexpr int ElRegistroNoTienePrincipal = 1213;
inline constexpr int ElPrincipalNoTienePosiciones = 1214;
inline constexpr int OtroPrincipalConLaMismaClave = 1215;
inline constexpr int ElValorEsMasLargo = 1216;
inline constexpr int FaltaUnValorObligatorio = 1217;
inline constexpr int ElValorNoEsUnNumero = 1218;
inline constexpr int ElValorNoEsUnaFecha = 1219;
inline constexpr int ElValorNoCorrespondeAlPatron = 1220;
inline constexpr int ElValorNoEstaEnLaLista = 1221;
inline constexpr int LaCeldaNoCabeEnElCampo = 1222;

// Dialogs: operations, language, printers
inline constexpr int AgregarUnaOperacion = 1223;
inline constexpr int CodigoDeTransaccion = 1224;
inline constexpr int BuscadorDeBAPIs = 1225;
inline constexpr int ElijaUnIdioma = 1226;
inline constexpr int Impresoras = 1227;
inline constexpr int Impresora = 1228;
inline constexpr int ArchivoPDF = 1229;
inline constexpr int Copias = 1230;
inline constexpr int Imprimir = 1231;

// Dialogs: data-set editor
inline constexpr int Lineas = 1232;
inline constexpr int RegistrosACambiar = 1233;
inline constexpr int Transaccion = 1234;
inline constexpr int Condicion1 = 1235;
inline constexpr int Condicion2 = 1236;
inline constexpr int Condicion3 = 1237;
inline constexpr int TodasLasAparicionesCumplen = 1238;
inline constexpr int BastaUnaAparicion = 1239;
inline constexpr int Reemplazo = 1240;
inline constexpr int RotuloCampo = 1241;
inline constexpr int ValorNuevo = 1242;
inline constexpr int ReemplazaA = 1243;
inline constexpr int CualquierValor = 1244;
inline constexpr int SoloUnValorQueContiene = 1245;
inline constexpr int ValorAnterior = 1246;
inline constexpr int ReemplazarTodoElValor = 1247;
inline constexpr int ReemplazarEstaParteDelValor = 1248;
inline constexpr int LineasDelArchivo = 1249;
inline constexpr int LineaDeLineas = 1250;
inline constexpr int Reemplazar = 1251;
inline constexpr int Detener = 1252;

// Dialogs: connection
inline constexpr int ConectarseAUnSistema = 1253;
inline constexpr int Sistema = 1254;
inline constexpr int SistemaDePractica = 1255;
inline constexpr int OpcionSistemaDePractica = 1256;
inline constexpr int EsParteDeEstePrograma = 1257;
inline constexpr int RolDelMandante = 1258;
inline constexpr int RolPrueba = 1259;
inline constexpr int RolProduccion = 1260;
inline constexpr int RolCustomizing = 1261;
inline constexpr int RolDemostracion = 1262;
inline constexpr int RolFormacion = 1263;
inline constexpr int RolReferenciaSAP = 1264;
inline constexpr int RolNinguno = 1265;
inline constexpr int UnMandanteProductivoNoAdmiteProgramas = 1266;
inline constexpr int ServidorDeAplicaciones = 1267;
inline constexpr int ServidorDeMensajesYGrupo = 1268;
inline constexpr int DireccionDelServidor = 1269;
inline constexpr int DireccionDelServidorDeMensajes = 1270;
inline constexpr int NumeroDeSistema = 1271;
inline constexpr int NombreDelSistema = 1272;
inline constexpr int GrupoDeConexion = 1273;
inline constexpr int SAProuter = 1274;
inline constexpr int UnRouterConContrasena = 1275;
inline constexpr int CaracterQueNoSePuedeEnviar = 1276;
inline constexpr int MarcoUsuario = 1277;
inline constexpr int Mandante = 1278;
inline constexpr int Usuario = 1279;
inline constexpr int Contrasena = 1280;
inline constexpr int Idioma = 1281;
inline constexpr int Nombre = 1282;

// Practice system
inline constexpr int NoSePuedeLeerLaGrabacion = 1283;
inline constexpr int NoSeGraboNada = 1284;
inline constexpr int NoSePuedeGuardarLaGrabacion = 1285;
inline constexpr int SeGuardaLaGrabacion = 1286;
inline constexpr int SusTransacciones = 1287;
inline constexpr int NoConoceLosAnchosDe = 1288;
inline constexpr int NoTieneGrabacionesTodavia = 1289;

// Examples
inline constexpr int OrdenAbrirUnEjemplo = 1290;
inline constexpr int AbrirUnEjemplo = 1291;
inline constexpr int Ejemplos = 1292;
inline constexpr int UnaCopiaDelEjemploSeAbre = 1293;
inline constexpr int Abrir = 1294;
inline constexpr int NoSePuedeCopiarElEjemplo = 1295;

// Rehearsal
inline constexpr int OrdenEnsayar = 1296;
inline constexpr int EnsayarEnElSistemaDePractica = 1297;
inline constexpr int Ensayo = 1298;
inline constexpr int RotuloRegistrosPrincipales = 1299;
inline constexpr int RotuloStepLoop = 1300;
inline constexpr int LosRegistrosNoVienenDeArchivo = 1301;
inline constexpr int ListasDeValores = 1302;
inline constexpr int CarpetaDeLasListas = 1303;
inline constexpr int Tablas = 1304;
inline constexpr int TablasDeArchivos = 1305;
inline constexpr int NingunaTabla = 1306;
inline constexpr int LaCarpetaValues = 1307;
inline constexpr int RotuloRegistros = 1308;
inline constexpr int Todos = 1309;
inline constexpr int DeUnoAOtro = 1310;
inline constexpr int QueFallen = 1311;
inline constexpr int NingunoComoFallos = 1312;
inline constexpr int Parametros = 1313;
inline constexpr int ComoLosTieneElReport = 1314;
inline constexpr int RotuloSistemaDePractica = 1315;
inline constexpr int EnMemoria = 1316;
inline constexpr int ElMioEnSuArchivo = 1317;
inline constexpr int FormaDeLosRegistros = 1318;
inline constexpr int FormaDeLosFallos = 1319;
inline constexpr int FormaDeLosParametros = 1320;
inline constexpr int FormaDeLasTablas = 1321;
inline constexpr int NoExisteElArchivo = 1322;
inline constexpr int NoExisteLaCarpeta = 1323;
inline constexpr int BotonEnsayar = 1324;
inline constexpr int AvanceDelEnsayo = 1325;
inline constexpr int Ajustes = 1326;
inline constexpr int Exportar = 1327;
inline constexpr int ElDiario = 1328;
inline constexpr int LosRegistrosFallados = 1329;
inline constexpr int ElJuegoDeDatos = 1330;
inline constexpr int Escrito = 1331;
inline constexpr int LaExportacionFallo = 1332;
inline constexpr int ReemplazarLosDeAlLado = 1333;
inline constexpr int CuentaDelEnsayoEnMarcha = 1334;
inline constexpr int CuentaDeUnRegistroLeido = 1335;
inline constexpr int CuentaDeRegistrosLeidos = 1336;
inline constexpr int CuentaDeContabilizados = 1337;
inline constexpr int CuentaDeFallados = 1338;
inline constexpr int CuentaEnJuegoDeDatos = 1339;
inline constexpr int Volcado = 1340;
inline constexpr int Detenido = 1341;
inline constexpr int ElReportNoSeEjecuto = 1342;
inline constexpr int ElEnsayoFallo = 1343;
inline constexpr int RegistrosDelEnsayo = 1344;
inline constexpr int Registros = 1345;
inline constexpr int Estado = 1346;
inline constexpr int Fallo = 1347;
inline constexpr int Contabilizado = 1348;
inline constexpr int Fallado = 1349;
inline constexpr int EnJuegoDeDatos = 1350;
inline constexpr int SinLlegar = 1351;
inline constexpr int Buscar = 1352;
inline constexpr int NumeroOTextoDelFallo = 1353;
inline constexpr int RegistroNumero = 1354;
inline constexpr int RegistroConEstado = 1355;
inline constexpr int NoSeProceso = 1356;
inline constexpr int NoEnvioNada = 1357;
inline constexpr int LoQueEnviaElRegistro = 1358;
inline constexpr int CampoDelArchivo = 1359;
inline constexpr int DeDondeVieneOPorQueNo = 1360;
inline constexpr int NoEnviado = 1361;
inline constexpr int FraseNoEnviado = 1362;
inline constexpr int LaCondicionNoSeCumple = 1363;
inline constexpr int ElValorEstaEnBlanco = 1364;
inline constexpr int ElValorEstaEnBlancoOCero = 1365;
inline constexpr int SuPantallaNoSeAbrio = 1366;
inline constexpr int NingunaLineaDelStepLoop = 1367;
inline constexpr int ElStepLoopNoSiguio = 1368;
inline constexpr int UnaFilaPosteriorBorraElCampo = 1369;
inline constexpr int UnaFilaPosteriorLlenaElCampo = 1370;
inline constexpr int UnaOperacionAnteriorFallo = 1371;
inline constexpr int ListaDelReport = 1372;
inline constexpr int PestanaLista = 1373;
inline constexpr int Fallos = 1374;
inline constexpr int PestanaFallos = 1375;
inline constexpr int Totales = 1376;
inline constexpr int PestanaTotales = 1377;
inline constexpr int Avisos = 1378;
inline constexpr int PestanaAvisos = 1379;
inline constexpr int PestanaVolcado = 1380;
inline constexpr int Report = 1381;
inline constexpr int IrALaCelda = 1382;
inline constexpr int Que = 1383;
inline constexpr int Cierta = 1384;
inline constexpr int Falsa = 1385;
inline constexpr int Leidos = 1386;
inline constexpr int TransaccionesLlamadas = 1387;
inline constexpr int TransaccionesEnJuegosDeDatos = 1388;
inline constexpr int JuegosDeDatos = 1389;
inline constexpr int LlamadasABAPIs = 1390;
inline constexpr int CondicionesPreguntadas = 1391;
inline constexpr int ParesDeValoresUsados = 1392;
inline constexpr int LineasSinRegistro = 1393;
inline constexpr int SeMuestranLosPrimerosFallos = 1394;
inline constexpr int SeMuestranLasPrimerasLineas = 1395;

// Rehearsal: what its failures and notices say
inline constexpr int RegistroYMensaje = 1396;
inline constexpr int RegistroDosPuntos = 1397;
inline constexpr int LaEntradaNoExiste = 1398;
inline constexpr int NoHayDatosParaLaPantalla = 1399;
inline constexpr int ElCampoNoExisteEnLaPantalla = 1400;
inline constexpr int ErrorDeFormatoEnElCampo = 1401;
inline constexpr int ElParametroFalta = 1402;
inline constexpr int LaTransaccionSeProceso = 1403;
inline constexpr int SePidioQueFallara = 1404;
inline constexpr int ValorDicho = 1405;
inline constexpr int ValorDichoDe = 1406;
inline constexpr int DelCampo = 1407;
inline constexpr int DelCampoConvertido = 1408;
inline constexpr int DeLaVariable = 1409;
inline constexpr int DeLaConstante = 1410;
inline constexpr int FilaDelLadoDelPrograma = 1411;
inline constexpr int FilaDelLadoDelArchivo = 1412;
inline constexpr int DeLaTablaDeErrores = 1413;
inline constexpr int DeLaTablaDeLaBase = 1414;
inline constexpr int DeSuOrigenDeDatos = 1415;
inline constexpr int ColumnasDe = 1416;
inline constexpr int ElCampoNumeroDe = 1417;
inline constexpr int LaLineaDelRegistro = 1418;
inline constexpr int UnaLineaDelStepLoop = 1419;
inline constexpr int AlgoDelArchivo = 1420;
inline constexpr int LineaDelArchivo = 1421;
inline constexpr int EnElArchivo = 1422;
inline constexpr int EnLaEspecificacion = 1423;
inline constexpr int DondeSeOrigina = 1424;
inline constexpr int CorrijaElValor = 1425;
inline constexpr int LaBAPILoExige = 1426;
inline constexpr int AcorteElValor = 1427;
inline constexpr int AcorteElValorOElAncho = 1428;
inline constexpr int LaGrabacionNoTieneElCampo = 1429;
inline constexpr int LaGrabacionNoTieneLaPantalla = 1430;
inline constexpr int LaPrimeraFilaAbreUnaPantalla = 1431;
inline constexpr int ElEnsayoSeDetuvo = 1432;
inline constexpr int SigueSinFin = 1433;
inline constexpr int NoSeGeneroNingunReport = 1434;
inline constexpr int LaEjecucionTermino = 1435;
inline constexpr int EnLineaYColumna = 1436;
inline constexpr int EnLineaYColumnaDe = 1437;
inline constexpr int MensajeNumero = 1438;
inline constexpr int MensajeDelRegistro = 1439;
inline constexpr int DelArchivoDosPuntos = 1440;
inline constexpr int LongitudDesconocida = 1441;
inline constexpr int LineasQueNoPertenecen = 1442;

// Main form: options that findings name
inline constexpr int OpcionAyudaF4 = 1443;
inline constexpr int OpcionArchivoOTablaDeEntrada = 1444;
inline constexpr int OpcionCallTransaction = 1445;
inline constexpr int OpcionUsarConvencionesDeNombres = 1446;
inline constexpr int OpcionCommitWork = 1447;
inline constexpr int OpcionCamposSeparadosPorTabuladores = 1448;
inline constexpr int OpcionEstado = 1449;
inline constexpr int OpcionDescripcion = 1450;
inline constexpr int OpcionOtraAdicion = 1451;
inline constexpr int OpcionConservarLosRegistros = 1452;
inline constexpr int OpcionNombreDeArchivoComoParametro = 1453;
inline constexpr int OpcionContactoFuncional = 1454;
inline constexpr int OpcionConstantesGlobales = 1455;
inline constexpr int OpcionNumerosGlobales = 1456;
inline constexpr int OpcionVariablesGlobales = 1457;
inline constexpr int OpcionTablasInternasGlobales = 1458;
inline constexpr int OpcionIdentificadoresDeRegistro = 1459;
inline constexpr int OpcionNumerosLocales = 1460;
inline constexpr int OpcionVariablesLocales = 1461;
inline constexpr int OpcionTablasInternasLocales = 1462;
inline constexpr int OpcionModoDeLlamadaComoParametro = 1463;
inline constexpr int OpcionNombreDelJuegoDeDatos = 1464;
inline constexpr int OpcionNotas = 1465;
inline constexpr int OpcionTodosLosRegistrosEnUnArchivo = 1466;
inline constexpr int OpcionParametrosNumericos = 1467;
inline constexpr int OpcionParametrosDePantalla = 1468;
inline constexpr int OpcionNumeroDelPrograma = 1469;
inline constexpr int OpcionArchivoDeProgramaAGenerar = 1470;
inline constexpr int OpcionJuegoDeLasErroneas = 1471;
inline constexpr int OpcionCodigoParaUnBlancoIntencional = 1472;
inline constexpr int OpcionTablaDeErrores = 1473;
inline constexpr int OpcionContactoTecnico = 1474;

// Publishing a report with errors
inline constexpr int PublicarConUnError = 1475;
inline constexpr int PublicarConErrores = 1476;

// Data preview and rehearsal, more of them
inline constexpr int LosCaracteresPodrianSerUTF8 = 1477;
inline constexpr int LosRegistrosNoSeComparan = 1478;
inline constexpr int SeLeenLosArchivosDeEntrada = 1479;
inline constexpr int EsteEjemploUsaConvenciones = 1480;

// Main form: the commands of the Edit menu on cells and rows, and their dialogs
inline constexpr int OrdenBuscarElSiguiente = 1481;
inline constexpr int OrdenCortar = 1482;
inline constexpr int OrdenCopiar = 1483;
inline constexpr int OrdenPegar = 1484;
inline constexpr int MenuFilas = 1485;
inline constexpr int OrdenCopiarLasFilas = 1486;
inline constexpr int OrdenInsertarFilaEnBlanco = 1487;
inline constexpr int OrdenSubirLaFila = 1488;
inline constexpr int OrdenBajarLaFila = 1489;
inline constexpr int OrdenCondiciones = 1490;
inline constexpr int OrdenIrAlCampoDelArchivo = 1491;
inline constexpr int OrdenAgregarLosCamposQueFaltan = 1492;
inline constexpr int OrdenAgregarUnaOperacion = 1493;
inline constexpr int OrdenOrigenDeLosDatos = 1494;
inline constexpr int OrdenGenerarElPrograma = 1495;
inline constexpr int LasTresFormasDeUnValor = 1496;
inline constexpr int AgregarLosCamposQueFaltan = 1497;
inline constexpr int EstosCamposFaltanEnElArchivo = 1498;
inline constexpr int MarcarTodos = 1499;
inline constexpr int MarcarNinguno = 1500;
inline constexpr int Agregar = 1501;

// Data-set editor
inline constexpr int ElijaElCampoAReemplazar = 1650;

// Main form: the pane of the structures
inline constexpr int OrdenEstructurasAbajo = 1651;

// Main form: its start page and the documents that were open before
inline constexpr int MenuDeRecientes = 1750;
inline constexpr int VaciarEstaLista = 1751;
inline constexpr int DocumentosRecientes = 1752;
inline constexpr int TodaviaNoSeAbrioNinguno = 1753;
inline constexpr int EspecificacionNueva = 1754;
inline constexpr int AbrirUnDocumento = 1755;
inline constexpr int ComoEmpezar = 1756;
inline constexpr int ElDocumentoYaNoEsta = 1757;

// What a failed operation on a file says on the screen
inline constexpr int NoSePudoAbrirElArchivo = 1600;
inline constexpr int NoSePudoProcesarElArchivo = 1601;
inline constexpr int NoSePudoGuardarLaEspecificacion = 1602;
inline constexpr int NoSePudoLeerElCatalogo = 1603;
inline constexpr int ElArchivoNoExiste = 1604;
inline constexpr int LaCarpetaNoExiste = 1605;
inline constexpr int OtroTieneElArchivo = 1606;
inline constexpr int SinPermisoParaElArchivo = 1607;
inline constexpr int ElDiscoEsDeSoloLectura = 1608;
inline constexpr int ElDiscoEstaLleno = 1609;
inline constexpr int EsUnaCarpeta = 1610;
inline constexpr int OtroCambioElArchivo = 1611;
inline constexpr int ElArchivoEstaDanado = 1612;
inline constexpr int LaAccionFallo = 1613;
inline constexpr int NombreFueraDeLaPaginaDeCodigos = 1614;
inline constexpr int OtroProgramaCambioElDocumento = 1615;
inline constexpr int ElReportFueraDeLaCarpeta = 1616;
inline constexpr int ElDocumentoNoSePuedeImprimir = 1617;
inline constexpr int ElPDFNoSePuedeAbrir = 1618;
inline constexpr int LosAjustesNoSePuedenLeer = 1619;
inline constexpr int LosAjustesNoSePuedenGuardar = 1620;

// What was written, and names for it
inline constexpr int AbrirLaCarpeta = 1621;
inline constexpr int CopiarAlPortapapeles = 1622;
inline constexpr int NoSePudoAbrirLaCarpeta = 1623;
inline constexpr int SeEscribioElPDF = 1624;
inline constexpr int NoSePudoAbrirLaImpresora = 1625;
inline constexpr int NombreSinTitulo = 1626;
inline constexpr int LaAccionSobreElArchivoFallo = 1627;
inline constexpr int NoSePudoEscribirElPrograma = 1628;
inline constexpr int ElArchivoYaExiste = 1629;
inline constexpr int NoHayNadaQueImportar = 1630;
inline constexpr int NoSePuedeTrabajarConLaEspecificacion = 1631;
inline constexpr int SignoDeMarcas = 1632;

// Main form: its menus Connection and Help
inline constexpr int QueEsEsto = 1700;
inline constexpr int MenuConexion = 1701;

// What the core says in English, on the screen
inline constexpr int ElCodigoEsMuyLargo = 1702;
inline constexpr int NoHaySitioParaOtraCondicion = 1703;
inline constexpr int LaConexionHaFallado = 1704;
inline constexpr int ElSistemaDePracticaNoSePuedeAbrir = 1705;
inline constexpr int LaConexionHaFalladoSinBibliotecas = 1706;
inline constexpr int ModuloRFCNoValido = 1707;
inline constexpr int ConexionConSAPPerdida = 1708;
inline constexpr int ConexionDePracticaPerdida = 1709;
inline constexpr int SinBibliotecaDeConexion = 1710;
inline constexpr int SinBAPIEnElSistemaDePractica = 1711;

// The reasons of failures, in the order of base/failure_reason.cpp.
constexpr int DeMotivo(int indice) { return 1800 + indice; }

// The sentences of findings: ten numbers for each code, one for each of its variants.
constexpr int DeHallazgo(int codigo, int variante) { return 10000 + 10 * codigo + variante; }

}  // namespace qor::palabra
