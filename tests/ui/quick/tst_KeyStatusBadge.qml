import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "KeyStatusBadge"

    Component {
        id: badges

        KeyStatusBadge {
            value: ""
        }
    }

    SignalSpy {
        id: said
        signalName: "said"
    }
    SignalSpy {
        id: choices
        target: testCase.badge
        signalName: "remedyChosen"
    }

    property KeyStatusBadge badge: null

    function init() {
        makeWorld();
        badge = make(badges);
        choices.clear();
    }

    function dot(): Item {
        return all(badge, RoundedBox)[0];
    }

    function test_saysThatThereIsNoKey() {
        const words = textOf(badge, "No key saved");

        compareFont(words, 10, 400);
        compareInk(words.color, 0.3);
        compareInk(dot().color, 0.3);
    }

    function test_saysThatThereIsAKey() {
        badge.value = "k";
        const words = textOf(badge, "Key saved in Keychain");

        compareFont(words, 10, 400);
        compareAccent(words.color, 0.8);
        compareAccent(dot().color, 1);
    }

    function test_saysWhyAKeyIsNotSaved() {
        badge.value = "k";
        const height = badge.height;
        badge.trouble = "Keyring locked: kept until glimmet quits";

        const words = textOf(badge, "Keyring locked: kept until glimmet quits");
        compareFont(words, 10, 400);
        compareInk(words.color, 0.7);
        compareInk(dot().color, 0.7);
        compare(badge.height, height);
        verify(!all(badge, PlainButton)[0].visible);
    }

    function test_offersAWayOut() {
        badge.width = 268;
        badge.trouble = "Keyring locked: kept until glimmet quits";
        badge.remedy = "Unlock";
        const button = all(badge, PlainButton)[0];

        compare(areaOf(button, badge).right, 268);
        verify(areaOf(button, badge).left > areaOf(textOf(badge, badge.trouble), badge).right);
        mouseClick(button);
        compare(choices.count, 1);
        compare(reader.told(badge), ["StaticText " + badge.trouble, "Button Unlock"]);
    }

    function test_itsDotIsSmallAndRound() {
        compare(dot().width, 5);
        compare(dot().height, 5);
        compare(dot().radius, 2.5);
        const words = areaOf(textOf(badge, "No key saved"), badge);
        verify(words.left > areaOf(dot(), badge).right);
        compare(areaOf(dot(), badge).y + 2.5, words.y + words.height / 2);
    }

    function test_isToldByItsWords() {
        compare(reader.told(badge), ["Paragraph No key saved"]);
    }

    function test_aNewStateIsAnnounced() {
        const news = announcementIn(badge);
        news.rest = 10;
        said.target = news;

        badge.trouble = "The keyring is locked";

        said.wait();
        compare(said.signalArguments[0][0], "The keyring is locked");
    }
}
