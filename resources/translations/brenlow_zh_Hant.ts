<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW">
    <context>
        <name>English</name>
        <message>
            <source>Clean</source>
            <translation>清理</translation>
        </message>
        <message>
            <source>Stop</source>
            <translation>停止</translation>
        </message>
        <message>
            <source>Scan</source>
            <translation>掃描</translation>
        </message>
        <message>
            <source>Re-Scan</source>
            <translation>重新掃描</translation>
        </message>
        <message>
            <source>Review</source>
            <translation>檢視</translation>
        </message>
        <message>
            <source>View Log</source>
            <translation>檢視記錄</translation>
        </message>
        <message>
            <source>Hide Log</source>
            <translation>隱藏記錄</translation>
        </message>
        <message>
            <source>Found </source>
            <translation>找到：</translation>
        </message>
        <message>
            <source>Selected: </source>
            <translation>已選取：</translation>
        </message>
        <message>
            <source>Cleaning...</source>
            <translation>正在清理...</translation>
        </message>
        <message>
            <source>Cleaned: </source>
            <translation>已清理：</translation>
        </message>
        <message>
            <source>%1 items</source>
            <translation>%1 個項目</translation>
        </message>
        <message>
            <source>Available in a later version</source>
            <translation>將於日後版本提供</translation>
        </message>
        <message>
            <source>Confirmation</source>
            <translation>確認</translation>
        </message>
        <message>
            <source>Are you sure to delete selected files?</source>
            <translation>確定要刪除選取的檔案嗎？</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You - Brenlow</source>
            <translation>嗨！很高興認識你 - Brenlow</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You</source>
            <translation>嗨！很高興認識你</translation>
        </message>
        <message>
            <source>Thank you for installing!</source>
            <translation>感謝你的安裝！</translation>
        </message>
        <message>
            <source>Enter your email</source>
            <translation>輸入你的電子郵件</translation>
        </message>
        <message>
            <source>Subscribe</source>
            <translation>訂閱</translation>
        </message>
        <message>
            <source>Visit Our Website</source>
            <translation>造訪我們的網站</translation>
        </message>
        <message>
            <source>Launch Brenlow</source>
            <translation>啟動 Brenlow</translation>
        </message>
        <message>
            <source>ERROR</source>
            <translation>錯誤</translation>
        </message>
        <message>
            <source>The email address can't be empty!</source>
            <translation>電子郵件地址不能空白！</translation>
        </message>
        <message>
            <source>The input format is incorrect!</source>
            <translation>輸入的格式不正確！</translation>
        </message>
        <message>
            <source>Success</source>
            <translation>成功</translation>
        </message>
        <message>
            <source>Thanks for Subscribing!</source>
            <translation>感謝你的訂閱！</translation>
        </message>
        <message>
            <source>Show in Folder</source>
            <translation>在檔案夾中顯示</translation>
        </message>
        <message>
            <source>Search</source>
            <translation>搜尋</translation>
        </message>
        <message>
            <source>Back</source>
            <translation>返回</translation>
        </message>
        <message>
            <source>Sort</source>
            <translation>排序</translation>
        </message>
        <message>
            <source>Empty</source>
            <translation>空</translation>
        </message>
        <message>
            <source>Deselect All</source>
            <translation>取消全選</translation>
        </message>
        <message>
            <source>Select All</source>
            <translation>全選</translation>
        </message>
        <message>
            <source>Error</source>
            <translation>錯誤</translation>
        </message>
        <message>
            <source>This category is empty!</source>
            <translation>此類別是空的！</translation>
        </message>
        <message>
            <source>Scanning</source>
            <translation>掃描中</translation>
        </message>
        <message>
            <source>Nothing to Clean</source>
            <translation>沒有需要清理的項目</translation>
        </message>
        <message>
            <source>Scan Done</source>
            <translation>掃描完成</translation>
        </message>
        <message>
            <source>Your disk is tidy here.</source>
            <translation>這裡的磁碟很整潔。</translation>
        </message>
        <message>
            <source>Clean Log</source>
            <translation>清理記錄</translation>
        </message>
        <message>
            <source>Clean Done</source>
            <translation>清理完成</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>失敗</translation>
        </message>
        <message>
            <source>Nothing failed.</source>
            <translation>沒有失敗的項目。</translation>
        </message>
        <message>
            <source>Brenlow</source>
            <translation>Brenlow</translation>
        </message>
        <message>
            <source>Brenlow Help</source>
            <translation>Brenlow 說明</translation>
        </message>
        <message>
            <source>Support</source>
            <translation>支援</translation>
        </message>
        <message>
            <source>Send Feedback</source>
            <translation>傳送意見回饋</translation>
        </message>
        <message>
            <source>Brenlow Website</source>
            <translation>Brenlow 網站</translation>
        </message>
        <message>
            <source>More Products</source>
            <translation>更多產品</translation>
        </message>
        <message>
            <source>Brenlow on Facebook</source>
            <translation>Brenlow 的 Facebook</translation>
        </message>
        <message>
            <source>Version </source>
            <translation>版本 </translation>
        </message>
        <message>
            <source>About Brenlow</source>
            <translation>關於 Brenlow</translation>
        </message>
        <message>
            <source>Keep a Local Log of Usage Events</source>
            <translation>在本機記錄使用事件</translation>
        </message>
        <message>
            <source>Quit Brenlow</source>
            <translation>結束 Brenlow</translation>
        </message>
        <message>
            <source>Language</source>
            <translation>語言</translation>
        </message>
        <message>
            <source>Help</source>
            <translation>說明</translation>
        </message>
        <message>
            <source>Subscribe to News…</source>
            <translation>訂閱最新消息…</translation>
        </message>
        <message>
            <source>Warn</source>
            <translation>警告</translation>
        </message>
        <message>
            <source>Info</source>
            <translation>資訊</translation>
        </message>
        <message>
            <source>OK</source>
            <translation>好</translation>
        </message>
        <message>
            <source>Confirm</source>
            <translation>確認</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>取消</translation>
        </message>
        <message>
            <source>OverTime</source>
            <translation>逾時</translation>
        </message>
        <message>
            <source>delete fail</source>
            <translation>無法刪除</translation>
        </message>
        <message>
            <source>nocause</source>
            <translation>原因不明</translation>
        </message>
        <message>
            <source>shredfail</source>
            <translation>無法徹底清除</translation>
        </message>
        <message>
            <source>movefail</source>
            <translation>無法移動</translation>
        </message>
        <message>
            <source>stop</source>
            <translation>已停止</translation>
        </message>
        <message>
            <source>get root fail</source>
            <translation>無法取得管理者權限</translation>
        </message>
        <message>
            <source>UnKnown</source>
            <translation>未知</translation>
        </message>
        <message>
            <source>A failure when referencing a bundle that doesn't exist</source>
            <translation>參照不存在的套件時失敗</translation>
        </message>
        <message>
            <source>A failure when trying to get the SecStaticCode for a bundle, but it is unsigned</source>
            <translation>無法取得未簽署套件的程式碼資訊</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecStaticCodeCreateWithPath</source>
            <translation>建立程式碼資訊時發生未知錯誤</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecCodeCopySigningInformation for a bundle</source>
            <translation>讀取套件簽署資訊時發生未知錯誤</translation>
        </message>
        <message>
            <source>Failure when calling SMJobBless</source>
            <translation>安裝輔助程式失敗</translation>
        </message>
        <message>
            <source>Authorization was denied by the system when asking a user for authorization</source>
            <translation>系統拒絕了授權要求</translation>
        </message>
        <message>
            <source>The user canceled a prompt for authorization</source>
            <translation>已取消授權要求</translation>
        </message>
        <message>
            <source>Unable to prompt the user (interaction disallowed)</source>
            <translation>無法要求授權（不允許互動）</translation>
        </message>
        <message>
            <source>Unknown failure when prompting the user for authorization</source>
            <translation>要求授權時發生未知錯誤</translation>
        </message>
        <message>
            <source>Unkown Error!</source>
            <translation>未知錯誤！</translation>
        </message>
        <message>
            <source>Scanning Mail Attachments From</source>
            <translation>正在掃描郵件附件：</translation>
        </message>
        <message>
            <source>Scanning Cached Mail From</source>
            <translation>正在掃描快取郵件：</translation>
        </message>
        <message>
            <source>1 byte</source>
            <translation>1 位元組</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 位元組</translation>
        </message>
        <message>
            <source>1 item</source>
            <translation>1 個項目</translation>
        </message>
        <message>
            <source>To be removed: %1</source>
            <translation>將移除：%1</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>完成</translation>
        </message>
        <message>
            <source>Cleaned</source>
            <translation>已清理</translation>
        </message>
        <message>
            <source>Total</source>
            <translation>總計</translation>
        </message>
        <message>
            <source>Auto Cleanup</source>
            <translation>自動清理</translation>
        </message>
        <message>
            <source>Scan and clean all junk with one click</source>
            <translation>一鍵掃描並清理所有垃圾檔案</translation>
        </message>
        <message>
            <source>Finds caches, logs, cached mail and trash at once</source>
            <translation>一次找出快取、記錄、快取的郵件和垃圾桶</translation>
        </message>
        <message>
            <source>Cleans only what you leave selected</source>
            <translation>只清理你保留勾選的項目</translation>
        </message>
        <message>
            <source>System Junk</source>
            <translation>系統垃圾</translation>
        </message>
        <message>
            <source>Caches, logs and leftovers of the system and your applications</source>
            <translation>系統與應用程式的快取、記錄及殘留檔案</translation>
        </message>
        <message>
            <source>Photo Cache</source>
            <translation>照片快取</translation>
        </message>
        <message>
            <source>Thumbnails and previews your photo tools can make again</source>
            <translation>照片工具可重新產生的縮圖與預覽</translation>
        </message>
        <message>
            <source>Mail Trash</source>
            <translation>郵件垃圾</translation>
        </message>
        <message>
            <source>Messages your mail client keeps copies of</source>
            <translation>郵件程式保存副本的郵件</translation>
        </message>
        <message>
            <source>Trash Bin</source>
            <translation>垃圾桶</translation>
        </message>
        <message>
            <source>Items waiting in the Trash, on this computer and on removable drives</source>
            <translation>這部電腦與卸除式磁碟垃圾桶中的項目</translation>
        </message>
        <message>
            <source>iTunes Junk</source>
            <translation>iTunes 垃圾</translation>
        </message>
        <message>
            <source>Old device backups and software updates</source>
            <translation>舊的裝置備份與軟體更新</translation>
        </message>
        <message>
            <source>Remove caches, logs and files your applications no longer need</source>
            <translation>移除應用程式不再需要的快取、記錄與檔案</translation>
        </message>
        <message>
            <source>Caches and logs of the system and your applications</source>
            <translation>系統與應用程式的快取與記錄</translation>
        </message>
        <message>
            <source>Translations you never use</source>
            <translation>你從不使用的翻譯</translation>
        </message>
        <message>
            <source>User Cache</source>
            <translation>使用者快取</translation>
        </message>
        <message>
            <source>Files your applications keep to work faster; they make them again when needed</source>
            <translation>應用程式為加快速度而保留的檔案；需要時會重新產生</translation>
        </message>
        <message>
            <source>System Cache</source>
            <translation>系統快取</translation>
        </message>
        <message>
            <source>Downloaded software packages that were already installed</source>
            <translation>已安裝軟體套件的下載檔案</translation>
        </message>
        <message>
            <source>User Logs</source>
            <translation>使用者記錄</translation>
        </message>
        <message>
            <source>Activity records of your desktop session</source>
            <translation>桌面工作階段的活動記錄</translation>
        </message>
        <message>
            <source>Crash Reports</source>
            <translation>當機報告</translation>
        </message>
        <message>
            <source>Reports and memory dumps of programs that stopped unexpectedly</source>
            <translation>意外停止之程式的報告與記憶體傾印</translation>
        </message>
        <message>
            <source>Language Files</source>
            <translation>語言檔案</translation>
        </message>
        <message>
            <source>Translations of your applications into languages you do not use</source>
            <translation>應用程式中你不使用之語言的翻譯</translation>
        </message>
        <message>
            <source>Free the space of previews your photo tools can make again</source>
            <translation>釋放照片工具可重新產生之預覽所佔的空間</translation>
        </message>
        <message>
            <source>Your photos themselves are never touched</source>
            <translation>絕不會動到你的照片本身</translation>
        </message>
        <message>
            <source>Thumbnails and previews that your photo tools make again</source>
            <translation>照片工具會重新產生的縮圖與預覽</translation>
        </message>
        <message>
            <source>Remove the copies of messages your mail client keeps</source>
            <translation>移除郵件程式保存的郵件副本</translation>
        </message>
        <message>
            <source>The messages stay in your mailbox</source>
            <translation>郵件仍會保留在信箱中</translation>
        </message>
        <message>
            <source>Cached Messages</source>
            <translation>快取的郵件</translation>
        </message>
        <message>
            <source>Copies of messages kept on your mail server</source>
            <translation>郵件伺服器上郵件的副本</translation>
        </message>
        <message>
            <source>Empty the Trash of this computer and of removable drives</source>
            <translation>清空這部電腦與卸除式磁碟的垃圾桶</translation>
        </message>
        <message>
            <source>Every Trash at once</source>
            <translation>一次清空所有垃圾桶</translation>
        </message>
        <message>
            <source>Trash</source>
            <translation>垃圾桶</translation>
        </message>
        <message>
            <source>Items in your Trash</source>
            <translation>垃圾桶中的項目</translation>
        </message>
        <message>
            <source>Removable Volumes Trash</source>
            <translation>卸除式磁碟區的垃圾桶</translation>
        </message>
        <message>
            <source>Items in the Trash of your removable drives</source>
            <translation>卸除式磁碟垃圾桶中的項目</translation>
        </message>
        <message>
            <source>Remove old device backups and software updates</source>
            <translation>移除舊的裝置備份與軟體更新</translation>
        </message>
        <message>
            <source>Old backups of your devices</source>
            <translation>裝置的舊備份</translation>
        </message>
        <message>
            <source>Downloaded updates</source>
            <translation>已下載的更新</translation>
        </message>
        <message>
            <source>iOS Device Backups</source>
            <translation>iOS 裝置備份</translation>
        </message>
        <message>
            <source>Backups of your iPhone, iPad and iPod</source>
            <translation>iPhone、iPad 與 iPod 的備份</translation>
        </message>
        <message>
            <source>iOS Software Updates</source>
            <translation>iOS 軟體更新</translation>
        </message>
        <message>
            <source>Downloaded software updates for your devices</source>
            <translation>為裝置下載的軟體更新</translation>
        </message>
        <message>
            <source>Duplicates</source>
            <translation>重複檔案</translation>
        </message>
        <message>
            <source>Find identical files and keep one of each</source>
            <translation>找出相同的檔案，每組只保留一個</translation>
        </message>
        <message>
            <source>Compares content, not names</source>
            <translation>比對內容，而非名稱</translation>
        </message>
        <message>
            <source>Large and Old Files</source>
            <translation>大型與舊檔案</translation>
        </message>
        <message>
            <source>Find big files and files you have not opened for a long time</source>
            <translation>找出大型檔案與很久沒開啟的檔案</translation>
        </message>
        <message>
            <source>Sorted by size and by age</source>
            <translation>依大小與時間排序</translation>
        </message>
        <message>
            <source>Similar Images</source>
            <translation>相似圖片</translation>
        </message>
        <message>
            <source>Find pictures that look alike</source>
            <translation>找出看起來相似的圖片</translation>
        </message>
        <message>
            <source>Keeps the best of each group</source>
            <translation>每組保留最佳的一張</translation>
        </message>
        <message>
            <source>Uninstaller</source>
            <translation>解除安裝程式</translation>
        </message>
        <message>
            <source>Remove applications together with their leftovers</source>
            <translation>移除應用程式及其殘留檔案</translation>
        </message>
        <message>
            <source>Settings, caches and support files</source>
            <translation>設定、快取與支援檔案</translation>
        </message>
        <message>
            <source>Eraser</source>
            <translation>碎紙機</translation>
        </message>
        <message>
            <source>Erase files so that they cannot be recovered</source>
            <translation>徹底清除檔案，使其無法復原</translation>
        </message>
        <message>
            <source>Overwrites before removing</source>
            <translation>移除前先覆寫</translation>
        </message>
        <message>
            <source>Privacy</source>
            <translation>隱私</translation>
        </message>
        <message>
            <source>Remove browsing history, cookies and other traces</source>
            <translation>移除瀏覽記錄、Cookie 與其他痕跡</translation>
        </message>
        <message>
            <source>Chrome and Firefox</source>
            <translation>Chrome 和 Firefox</translation>
        </message>
        <message>
            <source>Extensions</source>
            <translation>延伸功能</translation>
        </message>
        <message>
            <source>Manage the extensions and plug-ins of your system</source>
            <translation>管理系統的延伸功能與外掛程式</translation>
        </message>
        <message>
            <source>Turn them off without removing them</source>
            <translation>不移除即可停用</translation>
        </message>
        <message>
            <source>Cleanup</source>
            <translation>清理</translation>
        </message>
        <message>
            <source>Tools</source>
            <translation>工具</translation>
        </message>
        <message>
            <source>Finds caches, logs, mail attachments and trash at once</source>
            <translation>一次找出快取、記錄、郵件附件與垃圾桶</translation>
        </message>
        <message>
            <source>Attachments your mail client already downloaded</source>
            <translation>郵件用戶端已下載的附件</translation>
        </message>
        <message>
            <source>Temporary files the system left behind</source>
            <translation>系統留下的暫存檔案</translation>
        </message>
        <message>
            <source>Activity records of your applications</source>
            <translation>應用程式的活動記錄</translation>
        </message>
        <message>
            <source>System Logs</source>
            <translation>系統記錄</translation>
        </message>
        <message>
            <source>Activity records of the system</source>
            <translation>系統的活動記錄</translation>
        </message>
        <message>
            <source>Faces and previews that the photo library makes again</source>
            <translation>照片圖庫會重新產生的人臉與預覽</translation>
        </message>
        <message>
            <source>Remove mail attachments you already downloaded</source>
            <translation>移除已下載的郵件附件</translation>
        </message>
        <message>
            <source>Mail Attachments</source>
            <translation>郵件附件</translation>
        </message>
        <message>
            <source>Attachments Mail downloaded to show them</source>
            <translation>「郵件」為顯示而下載的附件</translation>
        </message>
        <message>
            <source>iTunes Cache</source>
            <translation>iTunes 快取</translation>
        </message>
        <message>
            <source>Files iTunes keeps to work faster</source>
            <translation>iTunes 為加快速度而保留的檔案</translation>
        </message>
        <message>
            <source>Chrome, Firefox and Safari</source>
            <translation>Chrome、Firefox 與 Safari</translation>
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
            <translation>Chrome 的記錄、下載項目、Cookie、登入資料與網站資料</translation>
        </message>
        <message>
            <source>History, downloads, cookies, logins and website data of Firefox</source>
            <translation>Firefox 的記錄、下載項目、Cookie、登入資料與網站資料</translation>
        </message>
        <message>
            <source>History, downloads and website data of Safari</source>
            <translation>Safari 的記錄、下載項目與網站資料</translation>
        </message>
        <message>
            <source>Safari keeps nothing on this system</source>
            <translation>此系統上沒有 Safari 的資料</translation>
        </message>
        <message>
            <source>Visit History</source>
            <translation>瀏覽記錄</translation>
        </message>
        <message>
            <source>Downloads History</source>
            <translation>下載記錄</translation>
        </message>
        <message>
            <source>Downloaded Files</source>
            <translation>已下載的檔案</translation>
        </message>
        <message>
            <source>Search History</source>
            <translation>搜尋記錄</translation>
        </message>
        <message>
            <source>Cookies</source>
            <translation>Cookie</translation>
        </message>
        <message>
            <source>Login History</source>
            <translation>登入記錄</translation>
        </message>
        <message>
            <source>Auto Fill History</source>
            <translation>自動填入記錄</translation>
        </message>
        <message>
            <source>HTML5 Local Storage</source>
            <translation>HTML5 本機儲存空間</translation>
        </message>
        <message>
            <source>Larger than 100 MB</source>
            <translation>大於 100 MB</translation>
        </message>
        <message>
            <source>Files of more than 100 MB</source>
            <translation>超過 100 MB 的檔案</translation>
        </message>
        <message>
            <source>Larger than 5 MB</source>
            <translation>大於 5 MB</translation>
        </message>
        <message>
            <source>Files of more than 5 MB, up to 100 MB</source>
            <translation>超過 5 MB、不超過 100 MB 的檔案</translation>
        </message>
        <message>
            <source>Older than a year</source>
            <translation>超過一年</translation>
        </message>
        <message>
            <source>Files last changed more than a year ago</source>
            <translation>最後修改於一年多以前的檔案</translation>
        </message>
        <message>
            <source>Older than a month</source>
            <translation>超過一個月</translation>
        </message>
        <message>
            <source>Files last changed more than a month ago, within the year</source>
            <translation>最後修改於一個月多以前、一年以內的檔案</translation>
        </message>
        <message>
            <source>Analyzing Data</source>
            <translation>正在分析資料</translation>
        </message>
        <message>
            <source>Collating data</source>
            <translation>正在整理資料</translation>
        </message>
        <message>
            <source>Videos </source>
            <translation>影片 </translation>
        </message>
        <message>
            <source>Music </source>
            <translation>音樂 </translation>
        </message>
        <message>
            <source>Images </source>
            <translation>影像 </translation>
        </message>
        <message>
            <source>Documents </source>
            <translation>文件 </translation>
        </message>
        <message>
            <source>Others</source>
            <translation>其他</translation>
        </message>
        <message>
            <source>All</source>
            <translation>全部</translation>
        </message>
        <message>
            <source>Not the same file</source>
            <translation>沒有相同的檔案</translation>
        </message>
        <message>
            <source>No File</source>
            <translation>沒有檔案</translation>
        </message>
        <message>
            <source>There are no files available for duplication</source>
            <translation>沒有重複的檔案</translation>
        </message>
        <message>
            <source>The number entered can only be an integer</source>
            <translation>輸入的數字只能是整數</translation>
        </message>
        <message>
            <source>Duplicate Finder Configuration</source>
            <translation>重複檔案搜尋設定</translation>
        </message>
        <message>
            <source>File in ***kb smaller than the below value will be automatically skipped.</source>
            <translation>小於下方數值的 ***kb 檔案將自動略過。</translation>
        </message>
        <message>
            <source>Cores</source>
            <translation>核心</translation>
        </message>
        <message>
            <source>Available</source>
            <translation>可用</translation>
        </message>
        <message>
            <source>Battery</source>
            <translation>電池</translation>
        </message>
        <message>
            <source>CPU</source>
            <translation>CPU</translation>
        </message>
        <message>
            <source>Charge Cycles</source>
            <translation>充電循環次數</translation>
        </message>
        <message>
            <source>Disk</source>
            <translation>磁碟</translation>
        </message>
        <message>
            <source>Free</source>
            <translation>可用空間</translation>
        </message>
        <message>
            <source>Memory</source>
            <translation>記憶體</translation>
        </message>
        <message>
            <source>Network</source>
            <translation>網路</translation>
        </message>
        <message>
            <source>No Battery Service Found</source>
            <translation>找不到電池</translation>
        </message>
        <message>
            <source>Used</source>
            <translation>已使用</translation>
        </message>
        <message>
            <source>User</source>
            <translation>使用者</translation>
        </message>
        <message>
            <source>Optimize Mac</source>
            <translation>最佳化 Mac</translation>
        </message>
        <message>
            <source>Optimize %1</source>
            <translation>最佳化 %1</translation>
        </message>
        <message>
            <source>Configuration</source>
            <translation>設定</translation>
        </message>
        <message>
            <source>Duplicate Finder…</source>
            <translation>重複檔案搜尋…</translation>
        </message>
        <message>
            <source>Choose Folder…</source>
            <translation>選擇資料夾…</translation>
        </message>
        <message>
            <source>Folder: </source>
            <translation>資料夾：</translation>
        </message>
        <message>
            <source>Choose the folder to search for duplicates</source>
            <translation>選擇要搜尋重複檔案的資料夾</translation>
        </message>
        <message>
            <source>Organize Data</source>
            <translation>正在整理資料</translation>
        </message>
        <message>
            <source>There are no files available for deduplication</source>
            <translation>沒有相似的圖片</translation>
        </message>
        <message>
            <source>Picture</source>
            <translation>圖片</translation>
        </message>
            <message>
            <source>%1 records</source>
            <translation>%1 筆記錄</translation>
        </message>
        <message>
            <source>The file is damaged and cannot be viewed</source>
            <translation>檔案已損毀，無法檢視</translation>
        </message>
        <message>
            <source>shred_sameFile_text</source>
            <translation>此項目已被選取</translation>
        </message>
        <message>
            <source>Add Files</source>
            <translation>加入檔案</translation>
        </message>
        <message>
            <source>Add Folder</source>
            <translation>加入資料夾</translation>
        </message>
        <message>
            <source>Name (A to Z)</source>
            <translation>名稱 (A 到 Z)</translation>
        </message>
        <message>
            <source>Name (Z to A)</source>
            <translation>名稱 (Z 到 A)</translation>
        </message>
        <message>
            <source>Remove from the list</source>
            <translation>從清單移除</translation>
        </message>
        <message>
            <source>Decompression</source>
            <translation>解壓縮</translation>
        </message>
        <message>
            <source>Decompression Progress :</source>
            <translation>解壓縮進度 :</translation>
        </message>
        <message>
            <source>Enter Password :</source>
            <translation>輸入密碼 :</translation>
        </message>
        <message>
            <source>Compress Failed</source>
            <translation>壓縮失敗</translation>
        </message>
        <message>
            <source>Decompress Failed</source>
            <translation>解壓縮失敗</translation>
        </message>
        <message>
            <source>Not shredded</source>
            <translation>未粉碎</translation>
        </message>
        <message>
            <source>Back to the list</source>
            <translation>返回清單</translation>
        </message>
        <message>
            <source>In-depth Uninstallation</source>
            <translation>深度解除安裝</translation>
        </message>
        <message>
            <source>Would you like to completely remove the app and its leftovers</source>
            <translation>要完全移除此應用程式及其殘留檔案嗎</translation>
        </message>
        <message>
            <source>Clean Fail</source>
            <translation>清理失敗</translation>
        </message>
        <message>
            <source>Cleanup Completed</source>
            <translation>清理完成</translation>
        </message>
        <message>
            <source>You had clean </source>
            <translation>您已清理 </translation>
        </message>
        <message>
            <source>Switched off</source>
            <translation>已停用</translation>
        </message>
        <message>
            <source>Switched on</source>
            <translation>已啟用</translation>
        </message>
        <message>
            <source>The helper refused to move it: it lies in none of the extension folders, or an item of its name is already where it would go</source>
            <translation>輔助程式拒絕移動: 它不在任何延伸功能資料夾中, 或目的地已有同名項目</translation>
        </message>
        <message>
            <source>Startup Applications</source>
            <translation>啟動應用程式</translation>
        </message>
        <message>
            <source>Programs that start when you log in</source>
            <translation>登入時啟動的程式</translation>
        </message>
        <message>
            <source>User Services</source>
            <translation>使用者服務</translation>
        </message>
        <message>
            <source>Services of your session that systemd starts for you</source>
            <translation>systemd 為您的工作階段啟動的服務</translation>
        </message>
        <message>
            <source>Shell Extensions</source>
            <translation>Shell 延伸功能</translation>
        </message>
        <message>
            <source>Extensions that load into the GNOME Shell</source>
            <translation>載入 GNOME Shell 的延伸功能</translation>
        </message>
        <message>
            <source>Browser Plug-ins</source>
            <translation>瀏覽器外掛程式</translation>
        </message>
        <message>
            <source>Plug-ins that load into Firefox</source>
            <translation>載入 Firefox 的外掛程式</translation>
        </message>
        <message>
            <source>Launch Agents</source>
            <translation>啟動代理程式</translation>
        </message>
        <message>
            <source>Internet Plug-ins</source>
            <translation>網際網路外掛程式</translation>
        </message>
        <message>
            <source>Plug-ins that load into web browsers</source>
            <translation>載入網頁瀏覽器的外掛程式</translation>
        </message>
        <message>
            <source>Preference Panes</source>
            <translation>偏好設定面板</translation>
        </message>
        <message>
            <source>Panes that load into System Preferences</source>
            <translation>載入系統偏好設定的面板</translation>
        </message>
        <message>
            <source>On</source>
            <translation>開啟</translation>
        </message>
        <message>
            <source>Off</source>
            <translation>關閉</translation>
        </message>
        <message>
            <source>Turn it off</source>
            <translation>停用</translation>
        </message>
        <message>
            <source>Turn it on</source>
            <translation>啟用</translation>
        </message>
        <message>
            <source>Name</source>
            <translation>名稱</translation>
        </message>
        <message>
            <source>Path</source>
            <translation>路徑</translation>
        </message>
        <message>
            <source>Size</source>
            <translation>大小</translation>
        </message>
        <message>
            <source>Enable NTFS</source>
            <translation>啟用 NTFS</translation>
        </message>
        <message>
            <source>No NTFS volume is mounted.</source>
            <translation>目前沒有掛載任何 NTFS 磁碟區。</translation>
        </message>
        <message>
            <source>Are your sure to activate NTFS?</source>
            <translation>確定要啟用 NTFS 嗎？</translation>
        </message>
        <message>
            <source>Activate the system's ntfs function</source>
            <translation>目前掛載的 NTFS 磁碟區將重新掛載為可寫入。</translation>
        </message>
        <message>
            <source>Activate Success!</source>
            <translation>已啟用</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function success</source>
            <translation>現在可以寫入 NTFS 磁碟區了。</translation>
        </message>
        <message>
            <source>Activate Fail!</source>
            <translation>啟用失敗</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function failed</source>
            <translation>無法啟用 NTFS 寫入功能。</translation>
        </message>
        <message>
            <source>it is not mounted any more</source>
            <translation>已不再掛載</translation>
        </message>
        <message>
            <source>it is not an NTFS volume</source>
            <translation>不是 NTFS 磁碟區</translation>
        </message>
        <message>
            <source>Windows did not close it cleanly; check it in Windows first</source>
            <translation>Windows 未正常關閉此磁碟區；請先在 Windows 中檢查</translation>
        </message>
        <message>
            <source>Windows is hibernated on it; shut Windows down fully first</source>
            <translation>Windows 在其上處於休眠狀態；請先將 Windows 完全關機</translation>
        </message>
        <message>
            <source>no NTFS driver that writes is installed</source>
            <translation>未安裝可寫入的 NTFS 驅動程式</translation>
        </message>
        <message>
            <source>it is in use; close its files and try again</source>
            <translation>正在使用中；請關閉其中的檔案後再試一次</translation>
        </message>
        <message>
            <source>the driver refused it; it stays read-only</source>
            <translation>驅動程式拒絕了；仍維持唯讀</translation>
        </message>
        <message>
            <source>it was left as it was</source>
            <translation>維持原狀</translation>
        </message>
        <message>
            <source>Nothing of this application is left</source>
            <translation>此應用程式已無任何殘留</translation>
        </message>
        <message>
            <source>The application itself</source>
            <translation>應用程式本身</translation>
        </message>
        <message>
            <source>Left behind by the application</source>
            <translation>應用程式遺留的項目</translation>
        </message>
    </context>
</TS>
