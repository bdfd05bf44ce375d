#pragma once

#include "platform/interface/InterfaceObjects.h"
#include "platform/interface/InterfaceReport.h"

/// Gives the object of an element its outlets. One that its class lacks, or whose object is of another class, is
/// reported.
void connectOutlets(const InterfaceElement& element, NSObject& object, const InterfaceObjects& objects,
                    InterfaceReport& report);
/// Lets the control of an element send its actions. One that the receiver's class lacks is reported.
void connectActions(const InterfaceElement& element, NSObject& object, const InterfaceObjects& objects,
                    InterfaceReport& report);
