# The window's half of the port: the entry points, the application, its bars, boxes and settings.
set(HUEBRUSH_WINDOW_SOURCES
  uno/MainThread.cpp
  uno/Text.cpp)
