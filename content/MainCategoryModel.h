#pragma once

#include "platform/runtime/NSObject.h"

#include <string>

/// One row of the group dropdown, shared by reference: the screen marks the choice on the row object itself.
class MainCategoryModel : public NSObject {
public:
    explicit MainCategoryModel(std::string rowTitle) : title(std::move(rowTitle)) {}

    std::string title; // the raw value of the option that the row stands for
    bool selected = false;
};
