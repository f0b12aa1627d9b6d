'use strict';

const {Atk, Clutter, Gio, GLib, GObject, Meta, St} = imports.gi;
const Main = imports.ui.main;
const PanelMenu = imports.ui.panelMenu;

