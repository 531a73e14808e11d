# The documents' half of the port: documents, selection, shapes, fills, undo.
set(HUEBRUSH_DOCUMENT_SOURCES)
