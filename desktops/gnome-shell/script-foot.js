
class GlimmetExtension {
    enable() {
        this._topBar = new TopBar();
    }

    disable() {
        this._topBar.destroy();
        this._topBar = null;
    }
}

/* exported init */
function init() {
    return new GlimmetExtension();
}
