
export default class GlimmetExtension extends Extension {
    enable() {
        this._topBar = new TopBar();
    }

    disable() {
        this._topBar.destroy();
        this._topBar = null;
    }
}
