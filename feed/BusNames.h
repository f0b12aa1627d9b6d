#pragma once

/// What glimmet and its feed are called on the session bus.
namespace glimmet::busNames {

inline constexpr const char *program = "me.kerno.glimmet";
/// Owned while a feed is read: glimmet's item then leaves the text to it.
inline constexpr const char *feed = "me.kerno.glimmet.Feed";
inline constexpr const char *itemPath = "/StatusNotifierItem";
inline constexpr const char *item = "org.kde.StatusNotifierItem";
inline constexpr const char *newLabel = "XAyatanaNewLabel";
inline constexpr const char *label = "XAyatanaLabel";
inline constexpr const char *properties = "org.freedesktop.DBus.Properties";

} // namespace glimmet::busNames
