// glimmet's text in GNOME Shell's top bar: the logic, which knows nothing of the form in which the shell loads it.
// What it needs of the shell comes by these names: Atk, Clutter, Gio, GLib, GObject, Meta, St, Main, PanelMenu.

const PROGRAM = 'me.kerno.glimmet';
const OBJECT = '/me/kerno/glimmet/TopBar';
// Held for as long as the button is there, by which glimmet knows that the text is here.
const EXTENSION = 'me.kerno.glimmet.TopBar';

const INTERFACE = `<node>
  <interface name="me.kerno.glimmet.TopBar1">
    <property name="Text" type="s" access="read"/>
    <property name="PanelOpen" type="b" access="read"/>
  </interface>
</node>`;

const TopBarProxy = Gio.DBusProxy.makeProxyWrapper(INTERFACE);

// How long and how often the new panel is looked after: a grab of the shell's own that is just ending keeps the
// keyboard from it.
const LOOK_AGAIN = 100; // ms
const MOST_LOOKS = 10;

function isPress(event) {
    return event.type() === Clutter.EventType.BUTTON_PRESS || event.type() === Clutter.EventType.TOUCH_BEGIN;
}

function isConfirmation(event) {
    return event.type() === Clutter.EventType.KEY_PRESS &&
        [Clutter.KEY_Return, Clutter.KEY_KP_Enter, Clutter.KEY_space].includes(event.get_key_symbol());
}

function isInWindow(actor) {
    for (let part = actor; part; part = part.get_parent()) {
        if (part instanceof Meta.WindowActor)
            return true;
    }
    return false;
}

// A button that is nothing but its text.
const TopBarButton = GObject.registerClass({
    Signals: {'pressed': {}},
}, class GlimmetTopBarButton extends PanelMenu.Button {
    _init() {
        super._init(0.5, 'glimmet', true);
        // Newer libraries have the shorter name.
        this.accessible_role = Atk.Role.PUSH_BUTTON ?? Atk.Role.BUTTON;
        this.visible = false;
        // Digits of one width, so that a clock keeps what is beside it where it is.
        this._label = new St.Label({
            style: 'font-feature-settings: "tnum";',
            y_align: Clutter.ActorAlign.CENTER,
        });
        this.add_child(this._label);
    }

    setText(text) {
        this._label.text = text;
    }

    setActive(isActive) {
        if (isActive)
            this.add_style_pseudo_class('active');
        else
            this.remove_style_pseudo_class('active');
    }

    vfunc_event(event) {
        if (!isPress(event) && !isConfirmation(event))
            return Clutter.EVENT_PROPAGATE;
        this.emit('pressed');
        return Clutter.EVENT_STOP;
    }
});

class TopBar {
    constructor() {
        this._cancellable = new Gio.Cancellable();
        this._proxy = null;
        this._process = 0;
        this._toldPlace = '';
        this._presses = 0;
        this._looks = 0;
        this._lookTimer = 0;
        this._placeIdle = 0;
        this._button = new TopBarButton();
        this._button.connect('pressed', () => this._toggle());
        this._button.connect('notify::allocation', () => this._tellPlaceSoon());
        Main.panel.addToStatusArea(EXTENSION, this._button, 0, 'right');
        this._session = Main.sessionMode.connect('updated', () => this._update());
        this._maps = global.window_manager.connect('map', (_manager, actor) => this._handleMap(actor.meta_window));
        this._name = Gio.DBus.session.own_name(EXTENSION, Gio.BusNameOwnerFlags.NONE, null, null);
        new TopBarProxy(Gio.DBus.session, PROGRAM, OBJECT, (proxy, error) => this._follow(proxy, error),
            this._cancellable, Gio.DBusProxyFlags.DO_NOT_AUTO_START);
    }

    destroy() {
        this._cancellable.cancel();
        Gio.DBus.session.unown_name(this._name);
        for (const source of [this._lookTimer, this._placeIdle]) {
            if (source)
                GLib.source_remove(source);
        }
        Main.sessionMode.disconnect(this._session);
        global.window_manager.disconnect(this._maps);
        this._watchPresses(false);
        if (this._proxy) {
            this._proxy.disconnect(this._properties);
            this._proxy.disconnect(this._owner);
        }
        this._proxy = null;
        this._button.destroy();
        this._button = null;
    }

    _follow(proxy, error) {
        if (this._cancellable.is_cancelled())
            return;
        if (error) {
            console.warn(`glimmet: ${error.message}`);
            return;
        }
        this._proxy = proxy;
        this._properties = proxy.connect('g-properties-changed', () => this._update());
        this._owner = proxy.connect('notify::g-name-owner', () => this._handleOwner());
        this._handleOwner();
    }

    _handleOwner() {
        this._process = 0;
        this._toldPlace = '';
        const owner = this._proxy.g_name_owner;
        if (owner)
            this._findProcess(owner);
        this._update();
    }

    // The windows of that process are glimmet's.
    _findProcess(owner) {
        Gio.DBus.session.call('org.freedesktop.DBus', '/org/freedesktop/DBus', 'org.freedesktop.DBus',
            'GetConnectionUnixProcessID', new GLib.Variant('(s)', [owner]), null, Gio.DBusCallFlags.NONE, -1,
            this._cancellable, (bus, result) => {
                try {
                    const [process] = bus.call_finish(result).deepUnpack();
                    if (this._proxy?.g_name_owner === owner)
                        this._process = process;
                } catch {
                    // It ended meanwhile, or the extension did.
                }
            });
    }

    _update() {
        const isThere = Boolean(this._proxy?.g_name_owner);
        const text = isThere ? this._proxy.Text ?? '' : '';
        const isOpen = isThere && Boolean(this._proxy.PanelOpen);
        this._button.setText(text);
        // What is worth a line in the bar is nobody's business while the screen is locked.
        this._button.visible = text !== '' && !Main.sessionMode.isLocked;
        this._button.setActive(isOpen);
        this._watchPresses(isOpen && Meta.is_wayland_compositor());
        this._tellPlaceSoon();
    }

    _say(method, parameters = null) {
        this._proxy.call(method, parameters, Gio.DBusCallFlags.NO_AUTO_START, -1, this._cancellable,
            (proxy, result) => {
                try {
                    proxy.call_finish(result);
                } catch (error) {
                    if (!error.matches(Gio.IOErrorEnum, Gio.IOErrorEnum.CANCELLED))
                        console.warn(`glimmet: ${method}: ${error.message}`);
                }
            });
    }

    _toggle() {
        if (!this._proxy?.g_name_owner)
            return;
        // Under Wayland glimmet hears of no press at the bar, and would take this one for that by which the panel
        // has just closed.
        if (Meta.is_wayland_compositor() && !this._proxy.PanelOpen)
            this._say('PressElsewhere');
        this._say('Toggle', this._place());
    }

    _place() {
        const button = [...this._button.get_transformed_position(), ...this._button.get_transformed_size()];
        const stage = global.stage.get_size();
        return new GLib.Variant('(iiiiii)', [...button, ...stage].map(Math.round));
    }

    // Once all around the button has its place too. A launch opens the panel without any press.
    _tellPlaceSoon() {
        if (this._placeIdle)
            return;
        this._placeIdle = GLib.idle_add(GLib.PRIORITY_DEFAULT_IDLE, () => {
            this._placeIdle = 0;
            this._tellPlace();
            return GLib.SOURCE_REMOVE;
        });
    }

    _tellPlace() {
        if (!this._proxy?.g_name_owner || !this._button.mapped)
            return;
        const place = this._place();
        if (place.print(false) === this._toldPlace)
            return;
        this._toldPlace = place.print(false);
        this._say('Place', place);
    }

    // Presses at windows come to glimmet through the X server, or take the keyboard away from it.
    _watchPresses(isWanted) {
        if (isWanted === Boolean(this._presses))
            return;
        if (!isWanted) {
            global.stage.disconnect(this._presses);
            this._presses = 0;
            return;
        }
        this._presses = global.stage.connect('captured-event', (stage, event) => {
            if (isPress(event) && this._isElsewhere(stage.get_event_actor(event)))
                this._say('PressElsewhere');
            return Clutter.EVENT_PROPAGATE;
        });
    }

    _isElsewhere(actor) {
        const isOurs = this._button.contains(actor);
        const isKeyboard = Main.layoutManager.keyboardBox.contains(actor);
        return !isOurs && !isKeyboard && !isInWindow(actor);
    }

    _isPanel(window) {
        return this._process > 0 && window.get_pid() === this._process &&
            window.get_window_type() === Meta.WindowType.UTILITY;
    }

    _handleMap(window) {
        if (!this._isPanel(window))
            return;
        window.make_above();
        window.stick();
        Main.overview.hide();
        this._looks = 0;
        this._giveKeyboard(window);
    }

    _giveKeyboard(window) {
        if (Main.modalCount === 0)
            global.stage.set_key_focus(null);
        window.activate(global.display.get_current_time_roundtrip());
        if (this._lookTimer)
            GLib.source_remove(this._lookTimer);
        this._lookTimer = GLib.timeout_add(GLib.PRIORITY_DEFAULT, LOOK_AGAIN, () => {
            this._lookTimer = 0;
            const isThere = this._proxy?.PanelOpen && window.get_compositor_private();
            if (isThere && !window.has_focus() && ++this._looks < MOST_LOOKS)
                this._giveKeyboard(window);
            return GLib.SOURCE_REMOVE;
        });
    }
}
