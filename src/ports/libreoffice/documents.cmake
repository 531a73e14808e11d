# The documents' half of the port: documents, selection, shapes, fills, undo.
add_subdirectory(fill)
set(HUEBRUSH_DOCUMENT_LIBRARIES huebrush_libreoffice_fill)
set(HUEBRUSH_DOCUMENT_SOURCES
  Documents.cpp
  document/Anchors.cpp
  document/BufferedFill.cpp
  document/DrawPage.cpp
  document/FillOrigin.cpp
  document/FillTables.cpp
  document/FillUndo.cpp
  document/Gradients.cpp
  document/OpenDocument.cpp
  document/PageStyles.cpp
  document/ShapeFill.cpp
  document/ShapeKind.cpp
  document/ShapeLine.cpp
  document/ShapeNames.cpp
  document/ShapePicture.cpp
  document/ShapeTree.cpp
  document/WindowSelection.cpp
  document/WriterDocument.cpp
  document/WriterSelection.cpp
  document/WriterShapes.cpp)
# The office's only way to a shape's type and to Writer's draw page is one that its SDK advises
# against.
set_source_files_properties(document/DrawPage.cpp document/ShapeKind.cpp
  PROPERTIES COMPILE_OPTIONS -Wno-deprecated-declarations)
