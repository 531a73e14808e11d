# The service of the command line.
set(HUEBRUSH_BATCH_SOURCES
  batch/BatchService.cpp
  batch/TextDocumentFile.cpp)
