"""Run by QGIS itself (qgis --code): opens the job KESTRIN_JOB as a user would, and takes pictures
of its window into the folder KESTRIN_PICTURES."""

import os

from qgis.core import (
    QgsCoordinateReferenceSystem,
    QgsFillSymbol,
    QgsGraduatedSymbolRenderer,
    QgsLineSymbol,
    QgsMarkerSymbol,
    QgsProject,
    QgsSettings,
    QgsStyle,
    QgsVectorLayer,
)
from qgis.PyQt.QtCore import QTimer
from qgis.PyQt.QtWidgets import QApplication, QDockWidget, QLabel
from qgis.utils import iface

JOB = os.environ["KESTRIN_JOB"]
FOLDER = os.environ["KESTRIN_PICTURES"]
STEM = os.path.splitext(os.path.basename(JOB))[0]


def save(widget, name):
    for _ in range(20):
        QApplication.processEvents()
    assert widget.grab().save(os.path.join(FOLDER, name))


def layer(name):
    added = QgsVectorLayer(f"{JOB}|layername={name}", f"{STEM} — {name}", "ogr")
    QgsProject.instance().addMapLayer(added)
    return added


def answered():
    asked = QApplication.activeModalWidget()
    asked.resize(560, 330)
    # Where it lies here is nobody's business.
    for label in asked.findChildren(QLabel):
        if JOB in label.text():
            label.setText(os.path.basename(JOB))
    save(asked, "gis-sublayers.png")
    asked.reject()


def window():
    main = iface.mainWindow()
    for dock in main.findChildren(QDockWidget):
        dock.setVisible(dock.objectName() == "Layers")
    main.showNormal()
    main.resize(1100, 700)
    return main


def show(layers, focus):
    tree = QgsProject.instance().layerTreeRoot()
    for node in tree.findLayers():
        node.setItemVisibilityChecked(node.layer() in layers)
        node.setExpanded(node.layer() == focus)
        iface.layerTreeView().refreshLayerSymbology(node.layerId())
    iface.setActiveLayer(focus)
    iface.zoomToActiveLayer()
    QApplication.processEvents()
    iface.mapCanvas().waitWhileRendering()


def pictures():
    main = window()
    # What dragging the job into the window asks; it waits here until it is answered.
    QTimer.singleShot(1500, answered)
    iface.addVectorLayer(JOB, STEM, "ogr")
    QgsProject.instance().removeAllMapLayers()

    poly, point, wire = layer("poly"), layer("point"), layer("wire")
    # Metres, so that the field has its proportions.
    QgsProject.instance().setCrs(QgsCoordinateReferenceSystem("EPSG:26915"))
    poly.renderer().setSymbol(
        QgsFillSymbol.createSimple({"color": "190,220,160", "outline_color": "110,150,80"}))
    wire.renderer().setSymbol(QgsLineSymbol.createSimple({"color": "60,60,60", "width": "0.3"}))
    show([poly, wire], poly)
    save(main, "gis-poly.png")

    rate = next(f.name() for f in point.fields() if f.name().startswith("ActRate"))
    point.setRenderer(QgsGraduatedSymbolRenderer.createRenderer(
        point, rate, 5, QgsGraduatedSymbolRenderer.Quantile,
        QgsMarkerSymbol.createSimple({"size": "2", "outline_style": "no"}),
        QgsStyle.defaultStyle().colorRamp("Viridis")))
    show([point], point)
    save(main, "gis-rates.png")


def work():
    try:
        pictures()
        done = 0
    except BaseException as fault:  # QGIS would ask in a box
        print(f"No pictures: {fault!r}", flush=True)
        done = 1
    os._exit(done)


# Asked of every layer otherwise.
QgsSettings().setValue("projections/promptWhenMultipleTransformsExist", False)
QTimer.singleShot(3000, work)
