#include "platform/win32/views.h"

#include <functional>
#include <map>
#include <string>

#include "platform/win32/view_table.h"

namespace platform {

namespace {

std::map<std::string, ViewProcedure, std::less<>> dialog_views;
std::map<std::string, ViewProcedure, std::less<>> tag_views;
std::map<ControlProcedure, ViewProcedure> procedure_views;
ViewProcedure common_dialog_view = nullptr;

template <class Map, class Key>
ViewProcedure Find(const Map& views, const Key& key) {
    const auto found = views.find(key);
    return found == views.end() ? nullptr : found->second;
}

}  // namespace

void SetDialogView(int dialog_template, ViewProcedure view) {
    dialog_views[std::to_string(dialog_template)] = view;
}

void SetDialogView(const char* dialog_template, ViewProcedure view) {
    dialog_views[dialog_template] = view;
}

void SetCommonDialogView(ViewProcedure view) {
    common_dialog_view = view;
}

void SetControlView(const char* tag, ViewProcedure view) {
    tag_views[tag] = view;
}

void SetControlView(ControlProcedure procedure, ViewProcedure view) {
    procedure_views[procedure] = view;
}

ViewProcedure FindDialogView(std::string_view dialog_template) {
    return Find(dialog_views, dialog_template);
}

ViewProcedure CommonDialogView() {
    return common_dialog_view;
}

ViewProcedure FindControlView(std::string_view tag, ControlProcedure procedure) {
    const ViewProcedure view = Find(procedure_views, procedure);
    return view != nullptr ? view : Find(tag_views, tag);
}

}  // namespace platform
