// Numbers of the generic output pages: their templates, their controls and
// the string lists they show. The size controls (1500 to 1523) are shared
// by every output page that keeps a size; 1400 to 1421 belong to the
// vector page and to the metafile controls of the others.
#pragma once

#define IDD_RASTER_OUT 200
#define IDD_VECTOR_OUT 201
#define IDD_ENTITY_OUT 228
#define IDD_RESIZE 222

// Size, units and resolution.
#define IDC_OUT_FLAVOR 1500
#define IDC_OUT_UNITS 1501
#define IDC_OUT_FLAVOR_LABEL 1502
#define IDC_OUT_UNITS_LABEL 1503
#define IDC_OUT_SCALING 1504
#define IDC_OUT_SCALING_LABEL 1505
#define IDC_OUT_SMOOTH 1506
#define IDC_OUT_WIDTH 1507
#define IDC_OUT_WIDTH_LABEL 1508
#define IDC_OUT_HEIGHT 1509
#define IDC_OUT_HEIGHT_LABEL 1510
#define IDC_OUT_ASPECT 1511
#define IDC_OUT_ASPECT_LABEL 1512
#define IDC_OUT_HORZRES 1513
#define IDC_OUT_HORZRES_LABEL 1514
#define IDC_OUT_VERTRES 1515
#define IDC_OUT_VERTRES_LABEL 1516
#define IDC_OUT_COMPRESS 1517
#define IDC_OUT_GRAYSCALE 1518
#define IDC_OUT_ALLBLACK 1519
#define IDC_OUT_REVERSE 1520
#define IDC_OUT_INVERT 1521
#define IDC_OUT_REVEAL 1522
#define IDC_OUT_MEMORIZE 1523

// The vector page, and the metafile controls that the raster page hides.
#define IDC_VEC_FLAVOR 1400
#define IDC_VEC_CURVE 1401
#define IDC_VEC_FLAVOR_LABEL 1402
#define IDC_VEC_CURVE_LABEL 1403
#define IDC_VEC_WIDTH 1404
#define IDC_VEC_WIDTH_LABEL 1405
#define IDC_VEC_HEIGHT 1406
#define IDC_VEC_HEIGHT_LABEL 1407
#define IDC_VEC_ASPECT 1408
#define IDC_VEC_ASPECT_LABEL 1409
#define IDC_VEC_UNITS_LABEL 1410
#define IDC_VEC_UNITS 1411
#define IDC_VEC_STROKE_FONTS 1412
#define IDC_VEC_GRAYSCALE 1413
#define IDC_VEC_ALLBLACK 1414
#define IDC_VEC_REVERSE 1415
#define IDC_VEC_INVERT 1416
#define IDC_VEC_REVEAL 1417
#define IDC_VEC_COMPRESS 1418
#define IDC_VEC_MEMORIZE 1419
#define IDC_VEC_STROKE_LINES 1420
#define IDC_VEC_STROKE_GRADIENTS 1421

// String lists: shown texts and the values that the tags hold.
#define IDS_UNITS_SHOWN 15001
#define IDS_SCALING_FILE 15002
#define IDS_VECTOR_UNITS_SHOWN 15004
#define IDS_CURVE_SHOWN 15005
#define IDS_SCALING_IN_HAND 15007
#define IDS_UNITS_VALUES 15008
#define IDS_VECTOR_UNITS_VALUES 15009
#define IDS_CURVE_VALUES 15010
#define IDS_METAFILE_OPTIONS 15025
