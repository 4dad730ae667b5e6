# SPDX-License-Identifier: MIT
# Test builds read the headers of Qt and GoogleTest once for a target, not once for each of its files.
# What is shipped is built without: so no file can lack an include unnoticed. Joined sources read
# them once anyway.

option(TARNWICK_PRECOMPILE_HEADERS "Precompile the headers of libraries" OFF)

set(TARNWICK_CORE_HEADERS <algorithm> <chrono> <functional> <memory> <optional> <string> <vector>
    <QDeadlineTimer> <QFile> <QJsonArray> <QJsonDocument> <QJsonObject> <QList> <QString>
    <QStringList>)
set(TARNWICK_WIDGET_HEADERS ${TARNWICK_CORE_HEADERS}
    <QApplication> <QKeyEvent> <QPainter> <QStyle> <QVBoxLayout> <QWidget>)

# tarnwick_precompile_headers(TARGET HEADERS…)
function(tarnwick_precompile_headers target)
  if(TARNWICK_PRECOMPILE_HEADERS AND NOT CMAKE_UNITY_BUILD)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# tarnwick_precompile_test_headers(TARGET CORE|WIDGET): the first of either kind precompiles for all.
function(tarnwick_precompile_test_headers target kind)
  if(NOT TARNWICK_PRECOMPILE_HEADERS)
    return()
  endif()
  get_property(first GLOBAL PROPERTY tarnwick_first_of_${kind}_tests)
  if(first)
    target_precompile_headers(${target} REUSE_FROM ${first})
    return()
  endif()
  set_property(GLOBAL PROPERTY tarnwick_first_of_${kind}_tests ${target})
  target_precompile_headers(${target} PRIVATE ${TARNWICK_${kind}_HEADERS} <gmock/gmock.h>
                            <gtest/gtest.h> <QDir> <QTemporaryDir>)
endfunction()
