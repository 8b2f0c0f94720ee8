<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
    <context>
        <name>English</name>
        <message>
            <source>Clean</source>
            <translation>クリーン</translation>
        </message>
        <message>
            <source>Stop</source>
            <translation>停止</translation>
        </message>
        <message>
            <source>Scan</source>
            <translation>スキャン</translation>
        </message>
        <message>
            <source>Re-Scan</source>
            <translation>再スキャン</translation>
        </message>
        <message>
            <source>Review</source>
            <translation>確認する</translation>
        </message>
        <message>
            <source>View Log</source>
            <translation>ログを表示</translation>
        </message>
        <message>
            <source>Hide Log</source>
            <translation>ログを隠す</translation>
        </message>
        <message>
            <source>Found </source>
            <translation>検出: </translation>
        </message>
        <message>
            <source>Selected: </source>
            <translation>選択済み: </translation>
        </message>
        <message>
            <source>Cleaning...</source>
            <translation>クリーン中...</translation>
        </message>
        <message>
            <source>Cleaned: </source>
            <translation>クリーン済み: </translation>
        </message>
        <message>
            <source>%1 items</source>
            <translation>%1 項目</translation>
        </message>
        <message>
            <source>Available in a later version</source>
            <translation>今後のバージョンで利用可能</translation>
        </message>
        <message>
            <source>Confirmation</source>
            <translation>確認</translation>
        </message>
        <message>
            <source>Are you sure to delete selected files?</source>
            <translation>選択したファイルを削除してもよろしいですか？</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You - Brenlow</source>
            <translation>ようこそ - Brenlow</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You</source>
            <translation>ようこそ</translation>
        </message>
        <message>
            <source>Thank you for installing!</source>
            <translation>インストールありがとうございます！</translation>
        </message>
        <message>
            <source>Enter your email</source>
            <translation>メールアドレスを入力</translation>
        </message>
        <message>
            <source>Subscribe</source>
            <translation>購読する</translation>
        </message>
        <message>
            <source>Visit Our Website</source>
            <translation>Webサイトを見る</translation>
        </message>
        <message>
            <source>Launch Brenlow</source>
            <translation>Brenlow を起動</translation>
        </message>
        <message>
            <source>ERROR</source>
            <translation>エラー</translation>
        </message>
        <message>
            <source>The email address can't be empty!</source>
            <translation>メールアドレスを入力してください！</translation>
        </message>
        <message>
            <source>The input format is incorrect!</source>
            <translation>入力の形式が正しくありません！</translation>
        </message>
        <message>
            <source>Success</source>
            <translation>完了</translation>
        </message>
        <message>
            <source>Thanks for Subscribing!</source>
            <translation>ご購読ありがとうございます！</translation>
        </message>
        <message>
            <source>Show in Folder</source>
            <translation>フォルダに表示</translation>
        </message>
        <message>
            <source>Search</source>
            <translation>検索</translation>
        </message>
        <message>
            <source>Back</source>
            <translation>戻る</translation>
        </message>
        <message>
            <source>Sort</source>
            <translation>並べ替え</translation>
        </message>
        <message>
            <source>Empty</source>
            <translation>空</translation>
        </message>
        <message>
            <source>Deselect All</source>
            <translation>すべての選択を解除</translation>
        </message>
        <message>
            <source>Select All</source>
            <translation>すべてを選択</translation>
        </message>
        <message>
            <source>Error</source>
            <translation>エラー</translation>
        </message>
        <message>
            <source>This category is empty!</source>
            <translation>このカテゴリは空です!</translation>
        </message>
        <message>
            <source>Scanning</source>
            <translation>スキャン中</translation>
        </message>
        <message>
            <source>Nothing to Clean</source>
            <translation>クリーンアップするものはありません</translation>
        </message>
        <message>
            <source>Scan Done</source>
            <translation>スキャン完了</translation>
        </message>
        <message>
            <source>Your disk is tidy here.</source>
            <translation>この項目はすっきりしています。</translation>
        </message>
        <message>
            <source>Clean Log</source>
            <translation>クリーンログ</translation>
        </message>
        <message>
            <source>Clean Done</source>
            <translation>クリーン完了</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>失敗</translation>
        </message>
        <message>
            <source>Nothing failed.</source>
            <translation>失敗した項目はありません。</translation>
        </message>
        <message>
            <source>Brenlow</source>
            <translation>Brenlow</translation>
        </message>
        <message>
            <source>Brenlow Help</source>
            <translation>Brenlow ヘルプ</translation>
        </message>
        <message>
            <source>Support</source>
            <translation>サポート</translation>
        </message>
        <message>
            <source>Send Feedback</source>
            <translation>フィードバックを送信</translation>
        </message>
        <message>
            <source>Brenlow Website</source>
            <translation>Brenlow Webサイト</translation>
        </message>
        <message>
            <source>More Products</source>
            <translation>その他の製品</translation>
        </message>
        <message>
            <source>Brenlow on Facebook</source>
            <translation>Facebook の Brenlow</translation>
        </message>
        <message>
            <source>Version </source>
            <translation>バージョン </translation>
        </message>
        <message>
            <source>About Brenlow</source>
            <translation>Brenlow について</translation>
        </message>
        <message>
            <source>Keep a Local Log of Usage Events</source>
            <translation>使用状況をローカルに記録</translation>
        </message>
        <message>
            <source>Quit Brenlow</source>
            <translation>Brenlow を終了</translation>
        </message>
        <message>
            <source>Language</source>
            <translation>言語</translation>
        </message>
        <message>
            <source>Help</source>
            <translation>ヘルプ</translation>
        </message>
        <message>
            <source>Subscribe to News…</source>
            <translation>ニュースを購読…</translation>
        </message>
        <message>
            <source>Warn</source>
            <translation>警告</translation>
        </message>
        <message>
            <source>Info</source>
            <translation>情報</translation>
        </message>
        <message>
            <source>OK</source>
            <translation>OK</translation>
        </message>
        <message>
            <source>Confirm</source>
            <translation>確認</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>キャンセル</translation>
        </message>
        <message>
            <source>OverTime</source>
            <translation>タイムアウト</translation>
        </message>
        <message>
            <source>delete fail</source>
            <translation>削除できませんでした</translation>
        </message>
        <message>
            <source>nocause</source>
            <translation>原因不明</translation>
        </message>
        <message>
            <source>shredfail</source>
            <translation>完全消去できませんでした</translation>
        </message>
        <message>
            <source>movefail</source>
            <translation>移動できませんでした</translation>
        </message>
        <message>
            <source>stop</source>
            <translation>停止しました</translation>
        </message>
        <message>
            <source>get root fail</source>
            <translation>管理者権限を取得できませんでした</translation>
        </message>
        <message>
            <source>UnKnown</source>
            <translation>不明</translation>
        </message>
        <message>
            <source>A failure when referencing a bundle that doesn't exist</source>
            <translation>存在しないバンドルを参照しようとして失敗しました</translation>
        </message>
        <message>
            <source>A failure when trying to get the SecStaticCode for a bundle, but it is unsigned</source>
            <translation>署名されていないバンドルのコード情報を取得できませんでした</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecStaticCodeCreateWithPath</source>
            <translation>コード情報の作成中に不明なエラーが発生しました</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecCodeCopySigningInformation for a bundle</source>
            <translation>バンドルの署名情報の取得中に不明なエラーが発生しました</translation>
        </message>
        <message>
            <source>Failure when calling SMJobBless</source>
            <translation>ヘルパーのインストールに失敗しました</translation>
        </message>
        <message>
            <source>Authorization was denied by the system when asking a user for authorization</source>
            <translation>システムが認証を拒否しました</translation>
        </message>
        <message>
            <source>The user canceled a prompt for authorization</source>
            <translation>認証がキャンセルされました</translation>
        </message>
        <message>
            <source>Unable to prompt the user (interaction disallowed)</source>
            <translation>認証を求めることができません（操作が許可されていません）</translation>
        </message>
        <message>
            <source>Unknown failure when prompting the user for authorization</source>
            <translation>認証の要求中に不明なエラーが発生しました</translation>
        </message>
        <message>
            <source>Unkown Error!</source>
            <translation>不明なエラーです！</translation>
        </message>
        <message>
            <source>Scanning Mail Attachments From</source>
            <translation>メールの添付ファイルをスキャン中:</translation>
        </message>
        <message>
            <source>Scanning Cached Mail From</source>
            <translation>キャッシュされたメールをスキャン中：</translation>
        </message>
        <message>
            <source>1 byte</source>
            <translation>1 バイト</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 バイト</translation>
        </message>
        <message>
            <source>1 item</source>
            <translation>1 項目</translation>
        </message>
        <message>
            <source>To be removed: %1</source>
            <translation>削除されるもの：%1</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>完了</translation>
        </message>
        <message>
            <source>Cleaned</source>
            <translation>クリーンアップ済み</translation>
        </message>
        <message>
            <source>Total</source>
            <translation>合計</translation>
        </message>
        <message>
            <source>Auto Cleanup</source>
            <translation>自動クリーンアップ</translation>
        </message>
        <message>
            <source>Scan and clean all junk with one click</source>
            <translation>ワンクリックですべての不要ファイルをスキャンしてクリーンアップ</translation>
        </message>
        <message>
            <source>Finds caches, logs, cached mail and trash at once</source>
            <translation>キャッシュ、ログ、キャッシュされたメール、ゴミ箱をまとめて見つけます</translation>
        </message>
        <message>
            <source>Cleans only what you leave selected</source>
            <translation>選択したものだけをクリーンアップ</translation>
        </message>
        <message>
            <source>System Junk</source>
            <translation>システムジャンク</translation>
        </message>
        <message>
            <source>Caches, logs and leftovers of the system and your applications</source>
            <translation>システムとアプリケーションのキャッシュ、ログ、残りファイル</translation>
        </message>
        <message>
            <source>Photo Cache</source>
            <translation>写真キャッシュ</translation>
        </message>
        <message>
            <source>Thumbnails and previews your photo tools can make again</source>
            <translation>写真ツールが再作成できるサムネールとプレビュー</translation>
        </message>
        <message>
            <source>Mail Trash</source>
            <translation>メールのゴミ</translation>
        </message>
        <message>
            <source>Messages your mail client keeps copies of</source>
            <translation>メールアプリがコピーを保存しているメッセージ</translation>
        </message>
        <message>
            <source>Trash Bin</source>
            <translation>ゴミ箱</translation>
        </message>
        <message>
            <source>Items waiting in the Trash, on this computer and on removable drives</source>
            <translation>このコンピュータとリムーバブルドライブのゴミ箱にある項目</translation>
        </message>
        <message>
            <source>iTunes Junk</source>
            <translation>iTunes のゴミ</translation>
        </message>
        <message>
            <source>Old device backups and software updates</source>
            <translation>古いデバイスのバックアップとソフトウェアアップデート</translation>
        </message>
        <message>
            <source>Remove caches, logs and files your applications no longer need</source>
            <translation>アプリケーションが不要になったキャッシュ、ログ、ファイルを削除</translation>
        </message>
        <message>
            <source>Caches and logs of the system and your applications</source>
            <translation>システムとアプリケーションのキャッシュとログ</translation>
        </message>
        <message>
            <source>Translations you never use</source>
            <translation>使用しない翻訳</translation>
        </message>
        <message>
            <source>User Cache</source>
            <translation>ユーザキャッシュ</translation>
        </message>
        <message>
            <source>Files your applications keep to work faster; they make them again when needed</source>
            <translation>アプリケーションが高速化のために保存するファイル。必要に応じて再作成されます</translation>
        </message>
        <message>
            <source>System Cache</source>
            <translation>システムキャッシュ</translation>
        </message>
        <message>
            <source>Downloaded software packages that were already installed</source>
            <translation>インストール済みのソフトウェアパッケージのダウンロードファイル</translation>
        </message>
        <message>
            <source>User Logs</source>
            <translation>ユーザログ</translation>
        </message>
        <message>
            <source>Activity records of your desktop session</source>
            <translation>デスクトップセッションの動作記録</translation>
        </message>
        <message>
            <source>Crash Reports</source>
            <translation>クラッシュレポート</translation>
        </message>
        <message>
            <source>Reports and memory dumps of programs that stopped unexpectedly</source>
            <translation>予期せず終了したプログラムのレポートとメモリダンプ</translation>
        </message>
        <message>
            <source>Language Files</source>
            <translation>言語ファイル</translation>
        </message>
        <message>
            <source>Translations of your applications into languages you do not use</source>
            <translation>使用しない言語へのアプリケーションの翻訳</translation>
        </message>
        <message>
            <source>Free the space of previews your photo tools can make again</source>
            <translation>写真ツールが再作成できるプレビューの領域を解放</translation>
        </message>
        <message>
            <source>Your photos themselves are never touched</source>
            <translation>写真そのものには一切触れません</translation>
        </message>
        <message>
            <source>Thumbnails and previews that your photo tools make again</source>
            <translation>写真ツールが再作成するサムネールとプレビュー</translation>
        </message>
        <message>
            <source>Remove the copies of messages your mail client keeps</source>
            <translation>メールアプリが保存しているメッセージのコピーを削除します</translation>
        </message>
        <message>
            <source>The messages stay in your mailbox</source>
            <translation>メッセージはメールボックスに残ります</translation>
        </message>
        <message>
            <source>Cached Messages</source>
            <translation>キャッシュされたメッセージ</translation>
        </message>
        <message>
            <source>Copies of messages kept on your mail server</source>
            <translation>メールサーバーにあるメッセージのコピー</translation>
        </message>
        <message>
            <source>Empty the Trash of this computer and of removable drives</source>
            <translation>このコンピュータとリムーバブルドライブのゴミ箱を空にする</translation>
        </message>
        <message>
            <source>Every Trash at once</source>
            <translation>すべてのゴミ箱を一度に</translation>
        </message>
        <message>
            <source>Trash</source>
            <translation>ゴミ箱</translation>
        </message>
        <message>
            <source>Items in your Trash</source>
            <translation>ゴミ箱の項目</translation>
        </message>
        <message>
            <source>Removable Volumes Trash</source>
            <translation>リムーバブルボリュームのゴミ箱</translation>
        </message>
        <message>
            <source>Items in the Trash of your removable drives</source>
            <translation>リムーバブルドライブのゴミ箱の項目</translation>
        </message>
        <message>
            <source>Remove old device backups and software updates</source>
            <translation>古いデバイスのバックアップとソフトウェアアップデートを削除</translation>
        </message>
        <message>
            <source>Old backups of your devices</source>
            <translation>デバイスの古いバックアップ</translation>
        </message>
        <message>
            <source>Downloaded updates</source>
            <translation>ダウンロード済みのアップデート</translation>
        </message>
        <message>
            <source>iOS Device Backups</source>
            <translation>iOS デバイスのバックアップ</translation>
        </message>
        <message>
            <source>Backups of your iPhone, iPad and iPod</source>
            <translation>iPhone、iPad、iPod のバックアップ</translation>
        </message>
        <message>
            <source>iOS Software Updates</source>
            <translation>iOS ソフトウェアアップデート</translation>
        </message>
        <message>
            <source>Downloaded software updates for your devices</source>
            <translation>デバイス用にダウンロードしたソフトウェアアップデート</translation>
        </message>
        <message>
            <source>Duplicates</source>
            <translation>重複ファイル</translation>
        </message>
        <message>
            <source>Find identical files and keep one of each</source>
            <translation>同一のファイルを見つけて1つだけ残す</translation>
        </message>
        <message>
            <source>Compares content, not names</source>
            <translation>名前ではなく内容を比較</translation>
        </message>
        <message>
            <source>Large and Old Files</source>
            <translation>大きなファイルと古いファイル</translation>
        </message>
        <message>
            <source>Find big files and files you have not opened for a long time</source>
            <translation>大きなファイルや長い間開いていないファイルを検出</translation>
        </message>
        <message>
            <source>Sorted by size and by age</source>
            <translation>サイズ別と期間別に分類</translation>
        </message>
        <message>
            <source>Similar Images</source>
            <translation>類似画像</translation>
        </message>
        <message>
            <source>Find pictures that look alike</source>
            <translation>似ている写真を検出</translation>
        </message>
        <message>
            <source>Keeps the best of each group</source>
            <translation>各グループで最良のものを残す</translation>
        </message>
        <message>
            <source>Uninstaller</source>
            <translation>アンインストーラ</translation>
        </message>
        <message>
            <source>Remove applications together with their leftovers</source>
            <translation>アプリケーションを残りファイルとともに削除</translation>
        </message>
        <message>
            <source>Settings, caches and support files</source>
            <translation>設定、キャッシュ、サポートファイル</translation>
        </message>
        <message>
            <source>Eraser</source>
            <translation>シュレッダー</translation>
        </message>
        <message>
            <source>Erase files so that they cannot be recovered</source>
            <translation>ファイルを復元できないように消去</translation>
        </message>
        <message>
            <source>Overwrites before removing</source>
            <translation>削除する前に上書き</translation>
        </message>
        <message>
            <source>Privacy</source>
            <translation>プライバシー</translation>
        </message>
        <message>
            <source>Remove browsing history, cookies and other traces</source>
            <translation>閲覧履歴、Cookie などの痕跡を削除</translation>
        </message>
        <message>
            <source>Chrome and Firefox</source>
            <translation>Chrome と Firefox</translation>
        </message>
        <message>
            <source>Extensions</source>
            <translation>機能拡張</translation>
        </message>
        <message>
            <source>Manage the extensions and plug-ins of your system</source>
            <translation>システムの機能拡張とプラグインを管理</translation>
        </message>
        <message>
            <source>Turn them off without removing them</source>
            <translation>削除せずにオフにする</translation>
        </message>
        <message>
            <source>Cleanup</source>
            <translation>クリーンアップ</translation>
        </message>
        <message>
            <source>Tools</source>
            <translation>ツール</translation>
        </message>
        <message>
            <source>Finds caches, logs, mail attachments and trash at once</source>
            <translation>キャッシュ、ログ、メールの添付ファイル、ゴミ箱を一度に検出</translation>
        </message>
        <message>
            <source>Attachments your mail client already downloaded</source>
            <translation>メールクライアントがダウンロード済みの添付ファイル</translation>
        </message>
        <message>
            <source>Temporary files the system left behind</source>
            <translation>システムが残した一時ファイル</translation>
        </message>
        <message>
            <source>Activity records of your applications</source>
            <translation>アプリケーションの動作記録</translation>
        </message>
        <message>
            <source>System Logs</source>
            <translation>システムログ</translation>
        </message>
        <message>
            <source>Activity records of the system</source>
            <translation>システムの動作記録</translation>
        </message>
        <message>
            <source>Faces and previews that the photo library makes again</source>
            <translation>写真ライブラリが再作成する顔データとプレビュー</translation>
        </message>
        <message>
            <source>Remove mail attachments you already downloaded</source>
            <translation>ダウンロード済みのメール添付ファイルを削除</translation>
        </message>
        <message>
            <source>Mail Attachments</source>
            <translation>メールの添付ファイル</translation>
        </message>
        <message>
            <source>Attachments Mail downloaded to show them</source>
            <translation>表示のために Mail がダウンロードした添付ファイル</translation>
        </message>
        <message>
            <source>iTunes Cache</source>
            <translation>iTunes キャッシュ</translation>
        </message>
        <message>
            <source>Files iTunes keeps to work faster</source>
            <translation>iTunes が高速化のために保存するファイル</translation>
        </message>
        <message>
            <source>Chrome, Firefox and Safari</source>
            <translation>Chrome、Firefox、Safari</translation>
        </message>
        <message>
            <source>Chrome</source>
            <translation>Chrome</translation>
        </message>
        <message>
            <source>Firefox</source>
            <translation>Firefox</translation>
        </message>
        <message>
            <source>Safari</source>
            <translation>Safari</translation>
        </message>
        <message>
            <source>History, downloads, cookies, logins and website data of Chrome</source>
            <translation>Chrome の履歴、ダウンロード、Cookie、ログイン情報、Web サイトのデータ</translation>
        </message>
        <message>
            <source>History, downloads, cookies, logins and website data of Firefox</source>
            <translation>Firefox の履歴、ダウンロード、Cookie、ログイン情報、Web サイトのデータ</translation>
        </message>
        <message>
            <source>History, downloads and website data of Safari</source>
            <translation>Safari の履歴、ダウンロード、Web サイトのデータ</translation>
        </message>
        <message>
            <source>Safari keeps nothing on this system</source>
            <translation>このシステムには Safari のデータはありません</translation>
        </message>
        <message>
            <source>Visit History</source>
            <translation>閲覧履歴</translation>
        </message>
        <message>
            <source>Downloads History</source>
            <translation>ダウンロード履歴</translation>
        </message>
        <message>
            <source>Downloaded Files</source>
            <translation>ダウンロードしたファイル</translation>
        </message>
        <message>
            <source>Search History</source>
            <translation>検索履歴</translation>
        </message>
        <message>
            <source>Cookies</source>
            <translation>Cookie</translation>
        </message>
        <message>
            <source>Login History</source>
            <translation>ログイン履歴</translation>
        </message>
        <message>
            <source>Auto Fill History</source>
            <translation>自動入力の履歴</translation>
        </message>
        <message>
            <source>HTML5 Local Storage</source>
            <translation>HTML5 ローカルストレージ</translation>
        </message>
        <message>
            <source>Larger than 100 MB</source>
            <translation>100 MB より大きい</translation>
        </message>
        <message>
            <source>Files of more than 100 MB</source>
            <translation>100 MB を超えるファイル</translation>
        </message>
        <message>
            <source>Larger than 5 MB</source>
            <translation>5 MB より大きい</translation>
        </message>
        <message>
            <source>Files of more than 5 MB, up to 100 MB</source>
            <translation>5 MB を超え 100 MB 以下のファイル</translation>
        </message>
        <message>
            <source>Older than a year</source>
            <translation>1 年以上前</translation>
        </message>
        <message>
            <source>Files last changed more than a year ago</source>
            <translation>最後の変更が 1 年以上前のファイル</translation>
        </message>
        <message>
            <source>Older than a month</source>
            <translation>1 か月以上前</translation>
        </message>
        <message>
            <source>Files last changed more than a month ago, within the year</source>
            <translation>最後の変更が 1 か月以上前で 1 年以内のファイル</translation>
        </message>
        <message>
            <source>Analyzing Data</source>
            <translation>データを分析中</translation>
        </message>
        <message>
            <source>Collating data</source>
            <translation>データを整理中</translation>
        </message>
        <message>
            <source>Videos </source>
            <translation>ビデオ </translation>
        </message>
        <message>
            <source>Music </source>
            <translation>ミュージック </translation>
        </message>
        <message>
            <source>Images </source>
            <translation>イメージ </translation>
        </message>
        <message>
            <source>Documents </source>
            <translation>書類 </translation>
        </message>
        <message>
            <source>Others</source>
            <translation>その他</translation>
        </message>
        <message>
            <source>All</source>
            <translation>すべて</translation>
        </message>
        <message>
            <source>Not the same file</source>
            <translation>同じファイルはありません</translation>
        </message>
        <message>
            <source>No File</source>
            <translation>ファイルなし</translation>
        </message>
        <message>
            <source>There are no files available for duplication</source>
            <translation>重複ファイルはありません</translation>
        </message>
        <message>
            <source>The number entered can only be an integer</source>
            <translation>入力できるのは整数だけです</translation>
        </message>
        <message>
            <source>Duplicate Finder Configuration</source>
            <translation>重複ファイル検索の設定</translation>
        </message>
        <message>
            <source>File in ***kb smaller than the below value will be automatically skipped.</source>
            <translation>下の値より小さい ***kb のファイルは自動的にスキップされます。</translation>
        </message>
        <message>
            <source>Cores</source>
            <translation>コア</translation>
        </message>
        <message>
            <source>Available</source>
            <translation>利用可能</translation>
        </message>
        <message>
            <source>Battery</source>
            <translation>バッテリー</translation>
        </message>
        <message>
            <source>CPU</source>
            <translation>CPU</translation>
        </message>
        <message>
            <source>Charge Cycles</source>
            <translation>充放電回数</translation>
        </message>
        <message>
            <source>Disk</source>
            <translation>ディスク</translation>
        </message>
        <message>
            <source>Free</source>
            <translation>空き</translation>
        </message>
        <message>
            <source>Memory</source>
            <translation>メモリ</translation>
        </message>
        <message>
            <source>Network</source>
            <translation>ネットワーク</translation>
        </message>
        <message>
            <source>No Battery Service Found</source>
            <translation>バッテリーが見つかりません</translation>
        </message>
        <message>
            <source>Used</source>
            <translation>使用済み</translation>
        </message>
        <message>
            <source>User</source>
            <translation>ユーザ</translation>
        </message>
        <message>
            <source>Optimize Mac</source>
            <translation>Macを最適化</translation>
        </message>
        <message>
            <source>Optimize %1</source>
            <translation>%1を最適化</translation>
        </message>
        <message>
            <source>Configuration</source>
            <translation>設定</translation>
        </message>
        <message>
            <source>Duplicate Finder…</source>
            <translation>重複ファイル検索…</translation>
        </message>
        <message>
            <source>Choose Folder…</source>
            <translation>フォルダを選択…</translation>
        </message>
        <message>
            <source>Folder: </source>
            <translation>フォルダ: </translation>
        </message>
        <message>
            <source>Choose the folder to search for duplicates</source>
            <translation>重複ファイルを探すフォルダを選択</translation>
        </message>
        <message>
            <source>Organize Data</source>
            <translation>データを整理中</translation>
        </message>
        <message>
            <source>There are no files available for deduplication</source>
            <translation>類似画像はありません</translation>
        </message>
        <message>
            <source>Picture</source>
            <translation>画像</translation>
        </message>
            <message>
            <source>%1 records</source>
            <translation>%1 件の記録</translation>
        </message>
        <message>
            <source>The file is damaged and cannot be viewed</source>
            <translation>ファイルが破損しているため表示できません</translation>
        </message>
        <message>
            <source>shred_sameFile_text</source>
            <translation>この項目はすでに選択されています</translation>
        </message>
        <message>
            <source>Add Files</source>
            <translation>ファイルを追加</translation>
        </message>
        <message>
            <source>Add Folder</source>
            <translation>フォルダを追加</translation>
        </message>
        <message>
            <source>Name (A to Z)</source>
            <translation>名前 (A から Z)</translation>
        </message>
        <message>
            <source>Name (Z to A)</source>
            <translation>名前 (Z から A)</translation>
        </message>
        <message>
            <source>Remove from the list</source>
            <translation>リストから削除</translation>
        </message>
        <message>
            <source>Decompression</source>
            <translation>解凍</translation>
        </message>
        <message>
            <source>Decompression Progress :</source>
            <translation>解凍の進行状況 :</translation>
        </message>
        <message>
            <source>Enter Password :</source>
            <translation>パスワードを入力 :</translation>
        </message>
        <message>
            <source>Compress Failed</source>
            <translation>圧縮に失敗しました</translation>
        </message>
        <message>
            <source>Decompress Failed</source>
            <translation>解凍に失敗しました</translation>
        </message>
        <message>
            <source>Not shredded</source>
            <translation>シュレッドされていません</translation>
        </message>
        <message>
            <source>Back to the list</source>
            <translation>リストに戻る</translation>
        </message>
        <message>
            <source>In-depth Uninstallation</source>
            <translation>完全アンインストール</translation>
        </message>
        <message>
            <source>Would you like to completely remove the app and its leftovers</source>
            <translation>アプリとその残りのファイルを完全に削除しますか</translation>
        </message>
        <message>
            <source>Clean Fail</source>
            <translation>クリーンアップに失敗しました</translation>
        </message>
        <message>
            <source>Cleanup Completed</source>
            <translation>クリーンアップが完了しました</translation>
        </message>
        <message>
            <source>You had clean </source>
            <translation>クリーンアップした容量: </translation>
        </message>
        <message>
            <source>Switched off</source>
            <translation>オフにしました</translation>
        </message>
        <message>
            <source>Switched on</source>
            <translation>オンにしました</translation>
        </message>
        <message>
            <source>The helper refused to move it: it lies in none of the extension folders, or an item of its name is already where it would go</source>
            <translation>ヘルパーは移動を拒否しました: どの拡張機能フォルダにもないか、移動先に同じ名前の項目が既にあります</translation>
        </message>
        <message>
            <source>Startup Applications</source>
            <translation>スタートアップアプリケーション</translation>
        </message>
        <message>
            <source>Programs that start when you log in</source>
            <translation>ログイン時に起動するプログラム</translation>
        </message>
        <message>
            <source>User Services</source>
            <translation>ユーザーサービス</translation>
        </message>
        <message>
            <source>Services of your session that systemd starts for you</source>
            <translation>systemd がセッションで起動するサービス</translation>
        </message>
        <message>
            <source>Shell Extensions</source>
            <translation>シェル拡張機能</translation>
        </message>
        <message>
            <source>Extensions that load into the GNOME Shell</source>
            <translation>GNOME Shell に読み込まれる拡張機能</translation>
        </message>
        <message>
            <source>Browser Plug-ins</source>
            <translation>ブラウザのプラグイン</translation>
        </message>
        <message>
            <source>Plug-ins that load into Firefox</source>
            <translation>Firefox に読み込まれるプラグイン</translation>
        </message>
        <message>
            <source>Launch Agents</source>
            <translation>起動エージェント</translation>
        </message>
        <message>
            <source>Internet Plug-ins</source>
            <translation>インターネットプラグイン</translation>
        </message>
        <message>
            <source>Plug-ins that load into web browsers</source>
            <translation>Web ブラウザに読み込まれるプラグイン</translation>
        </message>
        <message>
            <source>Preference Panes</source>
            <translation>環境設定パネル</translation>
        </message>
        <message>
            <source>Panes that load into System Preferences</source>
            <translation>システム環境設定に読み込まれるパネル</translation>
        </message>
        <message>
            <source>On</source>
            <translation>オン</translation>
        </message>
        <message>
            <source>Off</source>
            <translation>オフ</translation>
        </message>
        <message>
            <source>Turn it off</source>
            <translation>オフにする</translation>
        </message>
        <message>
            <source>Turn it on</source>
            <translation>オンにする</translation>
        </message>
        <message>
            <source>Name</source>
            <translation>名前</translation>
        </message>
        <message>
            <source>Path</source>
            <translation>パス</translation>
        </message>
        <message>
            <source>Size</source>
            <translation>サイズ</translation>
        </message>
        <message>
            <source>Enable NTFS</source>
            <translation>NTFSを有効にする</translation>
        </message>
        <message>
            <source>No NTFS volume is mounted.</source>
            <translation>マウントされているNTFSボリュームはありません。</translation>
        </message>
        <message>
            <source>Are your sure to activate NTFS?</source>
            <translation>NTFSを有効にしてもよろしいですか？</translation>
        </message>
        <message>
            <source>Activate the system's ntfs function</source>
            <translation>マウント中のNTFSボリュームを書き込み可能な状態で再マウントします。</translation>
        </message>
        <message>
            <source>Activate Success!</source>
            <translation>有効にしました</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function success</source>
            <translation>NTFSボリュームに書き込めるようになりました。</translation>
        </message>
        <message>
            <source>Activate Fail!</source>
            <translation>有効にできませんでした</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function failed</source>
            <translation>NTFS書き込み機能を有効にできませんでした。</translation>
        </message>
        <message>
            <source>it is not mounted any more</source>
            <translation>マウントされていません</translation>
        </message>
        <message>
            <source>it is not an NTFS volume</source>
            <translation>NTFSボリュームではありません</translation>
        </message>
        <message>
            <source>Windows did not close it cleanly; check it in Windows first</source>
            <translation>Windowsが正しく閉じていません。先にWindowsでチェックしてください</translation>
        </message>
        <message>
            <source>Windows is hibernated on it; shut Windows down fully first</source>
            <translation>Windowsが休止状態です。先にWindowsを完全にシャットダウンしてください</translation>
        </message>
        <message>
            <source>no NTFS driver that writes is installed</source>
            <translation>書き込み可能なNTFSドライバーがインストールされていません</translation>
        </message>
        <message>
            <source>it is in use; close its files and try again</source>
            <translation>使用中です。ファイルを閉じてからやり直してください</translation>
        </message>
        <message>
            <source>the driver refused it; it stays read-only</source>
            <translation>ドライバーが拒否しました。読み取り専用のままです</translation>
        </message>
        <message>
            <source>it was left as it was</source>
            <translation>変更されませんでした</translation>
        </message>
        <message>
            <source>Nothing of this application is left</source>
            <translation>このアプリケーションは何も残っていません</translation>
        </message>
        <message>
            <source>The application itself</source>
            <translation>アプリケーション本体</translation>
        </message>
        <message>
            <source>Left behind by the application</source>
            <translation>アプリケーションが残したもの</translation>
        </message>
    </context>
</TS>
