# The documents' half of the port: documents, selection, shapes, fills, undo.
add_subdirectory(fill)
set(HUEBRUSH_DOCUMENT_LIBRARIES huebrush_libreoffice_fill)
set(HUEBRUSH_DOCUMENT_SOURCES)
